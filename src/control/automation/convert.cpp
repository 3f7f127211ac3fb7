#include "krv/control/automation.h"
#include "krv/platform/data_access.h"
#include "krv/platform/error.h"

#include "control/failures.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace krv::automation {

namespace {

using platform::Formatter;
using platform::Value;
using platform::ValueKind;
using platform::ValueView;

[[noreturn]] void fail_type() {
    throw platform::RuntimeError(
        platform::error_number::type_mismatch, "Type mismatch", "krvList3");
}

bool is_word(std::string_view text, std::string_view word) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return text.size() == word.size() &&
           std::equal(text.begin(), text.end(), word.begin(), [&](char a, char b) {
               return lower(a) == b;
           });
}

/// Numbers, and texts and dates that stand for one.
double number_of(ValueView value, const Formatter& formatter) {
    switch (value.kind()) {
    case ValueKind::empty:
    case ValueKind::null:
    case ValueKind::bytes:
    case ValueKind::object:
        fail_type();
    default:
        return formatter.CDbl(value);
    }
}

bool boolean_of(ValueView value, const Formatter& formatter) {
    if (value.kind() == ValueKind::text) {
        if (is_word(value.as_text(), "true")) {
            return true;
        }
        if (is_word(value.as_text(), "false")) {
            return false;
        }
    }
    return number_of(value, formatter) != 0;
}

/// Half to even. Whole numbers of 64 bits beyond what a double holds are out of every range here.
template <class Whole>
std::int64_t whole_of(ValueView value, const Formatter& formatter, Whole least, Whole greatest) {
    const double number = std::nearbyint(number_of(value, formatter));
    if (!(number >= static_cast<double>(least) && number <= static_cast<double>(greatest))) {
        fail_overflow();
    }
    return static_cast<std::int64_t>(number);
}

float single_of(ValueView value, const Formatter& formatter) {
    if (value.kind() == ValueKind::single) {
        return value.as_single();
    }
    const auto number = static_cast<float>(number_of(value, formatter));
    if (std::isinf(number)) {
        fail_overflow();
    }
    return number;
}

/// Colours are 32 bits; their sign is a matter of who writes them down.
std::int64_t color_of(ValueView value, const Formatter& formatter) {
    constexpr std::int64_t least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t greatest = std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(whole_of(value, formatter, least, greatest));
}

Value text_of(const Value& value, const Formatter& formatter) {
    switch (value.kind()) {
    case ValueKind::text:
        return value;
    case ValueKind::empty:
    case ValueKind::null:
    case ValueKind::bytes:
    case ValueKind::object:
        fail_type();
    default:
        return Value::text(formatter.CStr(value.view()));
    }
}

template <class Interface>
Value object_of(const Value& value) {
    if (value.kind() == ValueKind::null) {
        return Value(std::shared_ptr<platform::Object>());
    }
    if (value.kind() != ValueKind::object) {
        fail_type();
    }
    const std::shared_ptr<platform::Object>& object = value.shared_object();
    if (object && !std::dynamic_pointer_cast<Interface>(object)) {
        fail_type();
    }
    return value;
}

template <class Whole>
std::int64_t whole_of(ValueView value, const Formatter& formatter) {
    using Limits = std::numeric_limits<Whole>;
    return whole_of(value, formatter, Limits::min(), Limits::max());
}

} // namespace

Value convert(const Value& value, Type type, const Formatter& formatter) {
    const ValueView view = value.view();
    switch (type) {
    case Type::Boolean:
        return Value(ValueView::boolean(boolean_of(view, formatter)));
    case Type::Integer:
        return Value(
            ValueView::integer(static_cast<std::int16_t>(whole_of<std::int16_t>(view, formatter))));
    case Type::Long:
    case Type::krvListRecords:
        return Value(ValueView::long_integer(
            static_cast<std::int32_t>(whole_of<std::int32_t>(view, formatter))));
    case Type::Single:
        return Value(ValueView::single(single_of(view, formatter)));
    case Type::OLE_COLOR:
        return Value(ValueView::long_long(color_of(view, formatter)));
    case Type::String:
        return text_of(value, formatter);
    case Type::Object:
        return object_of<platform::Object>(value);
    case Type::Recordset:
        return object_of<platform::Recordset>(value);
    case Type::none:
        break;
    }
    fail_type();
}

} // namespace krv::automation
