#include "server/form_parts.h"
#include "server/methods.h"

#include "krv/platform/error.h"
#include "krv/standard/regional_settings.h"

#include <memory>
#include <string>

namespace krv::server {

namespace {

Json title(ServerState& state, const Params& params) {
    platform::Application& application = state.form.application();
    if (params.has("value")) {
        application.SetTitle(params.text("value"));
    }
    state.form.turn();
    return {{"value", application.Title()}};
}

Json resize(ServerState& state, const Params& params) {
    FormControl& control = state.controls.find(params.text("id")).form_control();
    const float width = params.single("width");
    control.resize(width, params.single("height"));
    return Json::object();
}

Json focus(ServerState& state, const Params& params) {
    const std::string& name = params.text("part");
    if (name == "outside" && !params.has("id")) {
        state.form.focus_outside();
        return Json::object();
    }
    FormControl& control = state.controls.find(params.text("id")).form_control();
    if (name == "outside") {
        state.form.focus_outside();
    } else {
        control.focus(part_named(control, name));
    }
    return Json::object();
}

Json make_object(ServerState& state, const Params& params) {
    const std::string& name = params.text("name");
    const bool focusable = params.boolean("focusable");
    state.objects.add(name, state.form.make_object(name, focusable));
    state.form.turn();
    return {{"object", name}};
}

standard::RegionalSettings region_named(const std::string& name) {
    try {
        return standard::regional_settings(name);
    } catch (const platform::RuntimeError&) {
        fail_parameter("value", "no region");
    }
}

Json set_region(ServerState& state, const Params& params) {
    state.formatter =
        std::make_shared<const standard::ValueFormatter>(region_named(params.text("value")));
    state.form.turn();
    return Json::object();
}

Json yield(ServerState& state, const Params& /*params*/) {
    state.form.turn();
    return Json::object();
}

Json answer(ServerState& state, const Params& params) {
    const std::string& text = params.text("text");
    const Json& reply = params.any("reply");
    const auto standing = message_answer_of(reply);
    if (!standing && !reply.is_null()) {
        fail_parameter("reply", "none of \"ok\", \"yes\", \"no\" and null");
    }
    state.message_boxes.set_standing(text, standing);
    return Json::object();
}

constexpr Method methods[] = {{"host.title", title},
                              {"host.resize", resize},
                              {"host.focus", focus},
                              {"host.object", make_object},
                              {"host.region", set_region},
                              {"host.yield", yield},
                              {"answer", answer}};

} // namespace

std::span<const Method> host_methods() {
    return methods;
}

} // namespace krv::server
