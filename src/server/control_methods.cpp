#include "server/methods.h"
#include "server/not_yet.h"

#include <memory>
#include <string>

namespace krv::server {

namespace {

Json new_control(ServerState& state, const Params& params) {
    const std::string& id = params.text("id");
    state.controls.require_free(id);
    Client& client = state.client;
    auto sender = std::make_unique<EventSender>(client, state.objects, state.formatter, id);
    auto control =
        state.form.new_control({state.data, state.formatter, [&client, id](std::string_view name) {
                                    client.notify("propertyChanged", {{"id", id}, {"name", name}});
                                }});
    state.controls.add(
        id,
        std::make_unique<HostedControl>(std::move(control), std::move(sender), state.formatter));
    return Json::object();
}

Json delete_control(ServerState& state, const Params& params) {
    state.controls.remove(params.text("id"));
    return Json::object();
}

Json load_control(ServerState& /*state*/, const Params& /*params*/) {
    fail_not_yet();
}

Json save_control(ServerState& /*state*/, const Params& /*params*/) {
    fail_not_yet();
}

constexpr Method methods[] = {{"control.new", new_control},
                              {"control.load", load_control},
                              {"control.save", save_control},
                              {"control.delete", delete_control}};

} // namespace

std::span<const Method> control_methods() {
    return methods;
}

} // namespace krv::server
