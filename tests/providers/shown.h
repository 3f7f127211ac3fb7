#pragma once

#include "krv/platform/value.h"

#include <sstream>
#include <string>

namespace krv::providers {

/// A value with its kind, as one text to compare.
inline std::string shown(platform::ValueView value) {
    using platform::ValueKind;
    std::ostringstream out;
    out.precision(17);
    switch (value.kind()) {
    case ValueKind::null:
        return "Null";
    case ValueKind::boolean:
        return value.as_boolean() ? "True" : "False";
    case ValueKind::byte:
        out << "Byte " << value.as_whole();
        break;
    case ValueKind::integer:
        out << "Integer " << value.as_whole();
        break;
    case ValueKind::long_integer:
        out << "Long " << value.as_whole();
        break;
    case ValueKind::long_long:
        out << "LongLong " << value.as_whole();
        break;
    case ValueKind::single:
        out.precision(9);
        out << "Single " << value.as_single();
        break;
    case ValueKind::double_float:
        out << "Double " << value.as_double();
        break;
    case ValueKind::currency:
        out << "Currency " << value.as_currency().ten_thousandths;
        break;
    case ValueKind::decimal:
        out << "Decimal " << (value.as_decimal().negative ? "-" : "") << value.as_decimal().high
            << ":" << value.as_decimal().low << "e-" << int{value.as_decimal().scale};
        break;
    case ValueKind::date:
        out << "Date " << value.as_date().serial;
        break;
    case ValueKind::text:
        out << "'" << value.as_text() << "'";
        break;
    case ValueKind::bytes:
        out << "bytes";
        for (const std::byte byte : value.as_bytes()) {
            out << ' ' << std::to_integer<int>(byte);
        }
        break;
    default:
        out << "kind " << static_cast<int>(value.kind());
    }
    return out.str();
}

} // namespace krv::providers
