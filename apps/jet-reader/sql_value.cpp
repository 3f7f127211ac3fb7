#include "sql_value.h"

#include "regional.h"

namespace krv::jet_reader {

using platform::ValueView;

bool SqlArguments::has_null() const {
    for (std::size_t i = 0; i < size(); ++i) {
        if (is_null(i)) {
            return true;
        }
    }
    return false;
}

void SqlResult::date(double serial) {
    number(serial);
    sqlite3_result_subtype(context_, date_mark);
}

ValueView SqlArguments::value(std::size_t index) const {
    sqlite3_value* const raw_value = values_[index];
    if (sqlite3_value_subtype(raw_value) == date_mark) {
        return ValueView::date({sqlite3_value_double(raw_value)});
    }
    switch (sqlite3_value_type(raw_value)) {
    case SQLITE_INTEGER:
        return ValueView::long_long(sqlite3_value_int64(raw_value));
    case SQLITE_FLOAT:
        return ValueView::double_float(sqlite3_value_double(raw_value));
    case SQLITE_TEXT: {
        const auto* data = reinterpret_cast<const char*>(sqlite3_value_text(raw_value));
        return ValueView::text({data, static_cast<std::size_t>(sqlite3_value_bytes(raw_value))});
    }
    case SQLITE_BLOB: {
        const auto* data = static_cast<const std::byte*>(sqlite3_value_blob(raw_value));
        return ValueView::bytes({data, static_cast<std::size_t>(sqlite3_value_bytes(raw_value))});
    }
    default:
        return ValueView::null();
    }
}

std::string SqlArguments::text(std::size_t index) const {
    return region_of_sql().CStr(value(index));
}

double SqlArguments::number(std::size_t index) const {
    return region_of_sql().CDbl(value(index));
}

std::int32_t SqlArguments::whole(std::size_t index) const {
    return region_of_sql().CLng(value(index));
}

double SqlArguments::date(std::size_t index) const {
    return region_of_sql().CDate(value(index)).serial;
}

} // namespace krv::jet_reader
