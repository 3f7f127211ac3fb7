#include "providers/sqlite/column_value.h"

#include "standard/ado/date_text.h"
#include "standard/ado/exact_number.h"
#include "standard/ado/field_text.h"
#include "standard/ado/field_types.h"

#include <cmath>
#include <limits>
#include <optional>

namespace krv::providers::sqlite {

namespace {

namespace field_type = standard::field_type;
using platform::ValueView;

template <class Integer>
constexpr bool fits(std::int64_t value) noexcept {
    return value >= std::numeric_limits<Integer>::min() &&
           value <= std::numeric_limits<Integer>::max();
}

/// Bits that a float keeps exactly.
constexpr bool has_at_most(int bits, std::int64_t value) noexcept {
    const std::int64_t most = std::int64_t{1} << bits;
    return value >= -most && value <= most;
}

ValueView plain_whole(std::int64_t value) {
    return fits<std::int32_t>(value) ? ValueView::long_integer(static_cast<std::int32_t>(value))
                                     : ValueView::long_long(value);
}

/// Numbers in date columns, as SQLite's own date functions tell them apart.
std::optional<platform::Date> date_from_number(double value) {
    constexpr double beyond_julian_days = 5373484.5;
    return value < beyond_julian_days ? standard::date_from_julian_day(value)
                                      : standard::date_from_unix_seconds(value);
}

ValueView whole_as_date(std::int64_t value) {
    const auto date = date_from_number(static_cast<double>(value));
    return date ? ValueView::date(*date) : plain_whole(value);
}

ValueView real_as_date(double value) {
    const auto date = date_from_number(value);
    return date ? ValueView::date(*date) : ValueView::double_float(value);
}

} // namespace

ValueView whole_value(std::int64_t value, std::int16_t type) {
    switch (type) {
    case field_type::boolean:
        return value >= -1 && value <= 1 ? ValueView::boolean(value != 0) : plain_whole(value);
    case field_type::unsigned_tiny_int:
        return fits<std::uint8_t>(value) ? ValueView::byte(static_cast<std::uint8_t>(value))
                                         : plain_whole(value);
    case field_type::tiny_int:
    case field_type::small_int:
        return fits<std::int16_t>(value) ? ValueView::integer(static_cast<std::int16_t>(value))
                                         : plain_whole(value);
    case field_type::big_int:
        return ValueView::long_long(value);
    case field_type::single:
        return has_at_most(24, value) ? ValueView::single(static_cast<float>(value))
                                      : plain_whole(value);
    case field_type::double_float:
        return has_at_most(53, value) ? ValueView::double_float(static_cast<double>(value))
                                      : plain_whole(value);
    case field_type::currency: {
        const auto currency = standard::currency_from_whole(value);
        return currency ? ValueView::currency(*currency) : plain_whole(value);
    }
    case field_type::numeric:
        return ValueView::decimal(standard::decimal_from_whole(value));
    case field_type::db_date:
    case field_type::db_time:
    case field_type::db_time_stamp:
        return whole_as_date(value);
    default:
        return plain_whole(value);
    }
}

ValueView real_value(double value, std::int16_t type) {
    switch (type) {
    case field_type::single:
        return std::fabs(value) <= static_cast<double>(std::numeric_limits<float>::max())
                   ? ValueView::single(static_cast<float>(value))
                   : ValueView::double_float(value);
    case field_type::currency: {
        const auto currency = standard::currency_from_double(value);
        return currency ? ValueView::currency(*currency) : ValueView::double_float(value);
    }
    case field_type::numeric: {
        const auto decimal = standard::decimal_from_double(value);
        return decimal ? ValueView::decimal(*decimal) : ValueView::double_float(value);
    }
    case field_type::db_date:
    case field_type::db_time:
    case field_type::db_time_stamp:
        return real_as_date(value);
    default:
        return ValueView::double_float(value);
    }
}

ValueView blob_value(std::span<const std::byte> bytes, std::int16_t type, std::string& storage) {
    return type == field_type::guid ? standard::guid_value(bytes, storage)
                                    : ValueView::bytes(bytes);
}

} // namespace krv::providers::sqlite
