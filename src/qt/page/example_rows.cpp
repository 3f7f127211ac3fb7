#include "qt/page/example_rows.h"

#include "krv/platform/error.h"

#include <QString>

namespace krv::qt {

namespace {

using platform::ValueView;

constexpr double first_day = 46023; // 1 January 2026
constexpr double an_hour = 1.0 / 24;

/// A value of a type, by the type's number in the classic data objects; none for texts and for what
/// has no text.
ValueView example_value(std::int16_t type, int row) {
    const int count = row + 1;
    switch (type) {
    case 11:
        return ValueView::boolean(row % 2 == 0);
    case 2:
    case 3:
    case 16:
    case 17:
    case 18:
    case 19:
    case 20:
    case 21:
        return ValueView::long_integer(count);
    case 4:
    case 5:
    case 6:
    case 14:
    case 131:
    case 139:
        return ValueView::double_float(1234.5 * count);
    case 7:
    case 135:
        return ValueView::date({first_day + 31 * row + an_hour * (9 + row)});
    case 133:
        return ValueView::date({first_day + 31 * row});
    case 134:
        return ValueView::date({an_hour * (9 + row)});
    default:
        return {};
    }
}

bool has_no_text(std::int16_t type) {
    return type == 128 || type == 204 || type == 205 || type == 136;
}

std::string example_words(const PageColumns& columns, std::size_t column, int row) {
    const std::string& field = columns.colDataFields[column];
    const std::string& name = field.empty() ? columns.colCaptions[column] : field;
    const QString text =
        QString::fromStdString(name.empty() ? "abc" : name) + ' ' + QString::number(row + 1);
    const std::int16_t length = columns.colFieldLengths[column];
    return (length > 0 ? text.left(length) : text).toStdString();
}

} // namespace

std::string example_text(const PageColumns& columns,
                         std::size_t column,
                         int row,
                         const platform::Formatter& formatter) {
    const std::int16_t type = columns.colFieldTypes[column];
    const std::string& pattern = columns.colFormats[column];
    const std::string words = example_words(columns, column, row);
    ValueView value = example_value(type, row);
    if (has_no_text(type)) {
        return {};
    }
    if (value.kind() == platform::ValueKind::empty) {
        value = ValueView::text(words);
    }
    try {
        return pattern.empty() ? formatter.CStr(value) : formatter.Format(value, pattern);
    } catch (const platform::RuntimeError&) {
        return words; // a pattern that is being typed
    }
}

} // namespace krv::qt
