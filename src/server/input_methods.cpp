#include "server/form_parts.h"
#include "server/methods.h"

#include <array>
#include <string>
#include <utility>

namespace krv::server {

namespace {

Json key(ServerState& state, const Params& params) {
    FormControl& control = state.controls.find(params.text("id")).form_control();
    const std::int16_t code = params.integer("code");
    const std::int16_t shift = params.integer("shift");
    if (params.has("part")) {
        control.key(part_named(control, params.text("part")), code, shift);
    } else {
        state.form.key(code, shift);
    }
    return Json::object();
}

Json text(ServerState& state, const Params& params) {
    state.controls.find(params.text("id"));
    state.form.text(params.text("text"));
    return Json::object();
}

MouseAction action_named(const std::string& name) {
    constexpr std::array<std::pair<std::string_view, MouseAction>, 5> actions = {{
        {"press", MouseAction::press},
        {"move", MouseAction::move},
        {"release", MouseAction::release},
        {"click", MouseAction::click},
        {"dblclick", MouseAction::double_click},
    }};
    for (const auto& [known, action] : actions) {
        if (known == name) {
            return action;
        }
    }
    fail_parameter("action", "unknown");
}

Json mouse(ServerState& state, const Params& params) {
    FormControl& control = state.controls.find(params.text("id")).form_control();
    platform::Part& part = part_named(control, params.text("part"));
    const MouseAction action = action_named(params.text("action"));
    const Mouse where{
        params.integer("button"), params.integer("shift"), params.single("x"), params.single("y")};
    control.mouse(part, action, where);
    return Json::object();
}

constexpr Method methods[] = {{"input.key", key}, {"input.text", text}, {"input.mouse", mouse}};

} // namespace

std::span<const Method> input_methods() {
    return methods;
}

} // namespace krv::server
