#include "server/values.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace krv::server {

namespace {

using platform::Value;
using platform::ValueKind;
using platform::ValueView;

Value number_value(const Json& json) {
    using Limits = std::numeric_limits<std::int32_t>;
    const auto number = json.get<double>();
    if (json.is_number_integer() && number >= Limits::min() && number <= Limits::max()) {
        return Value(ValueView::long_integer(json.get<std::int32_t>()));
    }
    return Value(ValueView::double_float(number));
}

Value object_value(const Json& json, const ObjectTable& objects) {
    const auto name = json.is_object() ? json.find("object") : json.end();
    if (name == json.end() || !name->is_string()) {
        return Value(ValueView::bytes({}));
    }
    return Value(objects.find(name->get_ref<const std::string&>()));
}

} // namespace

Value value_of(const Json& json, const ObjectTable& objects) {
    switch (json.type()) {
    case Json::value_t::null:
        return Value(ValueView::null());
    case Json::value_t::boolean:
        return Value(ValueView::boolean(json.get<bool>()));
    case Json::value_t::string:
        return Value::text(json.get<std::string>());
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned:
    case Json::value_t::number_float:
        return number_value(json);
    default:
        return object_value(json, objects);
    }
}

Json json_of(const Value& value, ObjectTable& objects) {
    const ValueView view = value.view();
    switch (view.kind()) {
    case ValueKind::boolean:
        return view.as_boolean();
    case ValueKind::single:
        return shortest(view.as_single());
    case ValueKind::double_float:
        return view.as_double();
    case ValueKind::text:
        return std::string(view.as_text());
    case ValueKind::object:
        if (value.shared_object()) {
            return {{"object", objects.name_of(value.shared_object())}};
        }
        return nullptr;
    default:
        return view.is_whole() ? Json(view.as_whole()) : Json();
    }
}

double shortest(float number) {
    if (!std::isfinite(number)) {
        return number;
    }
    char text[32];
    const char* const end = std::to_chars(text, text + sizeof text, number).ptr;
    double result = 0;
    std::from_chars(text, end, result);
    return result;
}

} // namespace krv::server
