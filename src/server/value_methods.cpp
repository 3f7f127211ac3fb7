#include "server/data_values.h"
#include "server/methods.h"

#include "krv/standard/value_formatter.h"

#include <array>
#include <string>

namespace krv::server {

namespace {

using platform::Value;
using platform::ValueKind;
using platform::ValueView;
using standard::ValueFormatter;

Json text(std::string value) {
    return {{"text", std::move(value)}};
}

Json number(Json value) {
    return {{"number", std::move(value)}};
}

Json val(const ValueFormatter& formatter, ValueView value) {
    const bool is_text = value.kind() == ValueKind::text;
    return number(formatter.Val(is_text ? std::string(value.as_text()) : formatter.CStr(value)));
}

Json currency(const ValueFormatter& formatter, ValueView value) {
    constexpr double ten_thousandths = 10000;
    return number(static_cast<double>(formatter.CCur(value).ten_thousandths) / ten_thousandths);
}

struct Function {
    std::string_view name;
    Json (*run)(const ValueFormatter& formatter, ValueView value);
};

constexpr std::array functions = {
    Function{"CStr", [](const ValueFormatter& f, ValueView v) { return text(f.CStr(v)); }},
    Function{"Str", [](const ValueFormatter& f, ValueView v) { return text(f.Str(v)); }},
    Function{"Val", val},
    Function{"CInt", [](const ValueFormatter& f, ValueView v) { return number(f.CInt(v)); }},
    Function{"CLng", [](const ValueFormatter& f, ValueView v) { return number(f.CLng(v)); }},
    Function{"CDbl",
             [](const ValueFormatter& f, ValueView v) {
                 return number(json_of_data(ValueView::double_float(f.CDbl(v)), f));
             }},
    Function{"CCur", currency},
    Function{"CDate",
             [](const ValueFormatter& f, ValueView v) {
                 return Json{{"date", date_text(f.CDate(v))}};
             }},
};

Value described_value(const Json& described) {
    if (!described.is_object()) {
        fail_parameter("value", "no kind and value");
    }
    const Params parts(described);
    const std::string& kind = parts.text("kind");
    const bool needs_no_value = kind == "Null" || kind == "Empty";
    return value_of_kind(kind, needs_no_value ? Json() : parts.any("value"));
}

Json convert(ServerState& state, const Params& params) {
    const std::string& name = params.text("function");
    const Value value = described_value(params.any("value"));
    const ValueFormatter& formatter = *state.formatter;
    if (name == "Format") {
        const std::string pattern = params.has("pattern") ? params.text("pattern") : "";
        return text(formatter.Format(value.view(), pattern));
    }
    for (const Function& function : functions) {
        if (function.name == name) {
            return function.run(formatter, value.view());
        }
    }
    fail_parameter("function", "unknown");
}

constexpr Method methods[] = {{"value.convert", convert}};

} // namespace

std::span<const Method> value_methods() {
    return methods;
}

} // namespace krv::server
