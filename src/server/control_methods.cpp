#include "server/methods.h"
#include "server/values.h"
#include "server/written_bag.h"

#include <memory>
#include <string>
#include <utility>

namespace krv::server {

namespace {

/// What both ways into a form share: the client's id, the sender of its events.
template <class Make>
Json add_control(ServerState& state, const Params& params, Make make) {
    const std::string& id = params.text("id");
    state.controls.require_free(id);
    Client& client = state.client;
    auto sender = std::make_unique<EventSender>(client, state.objects, state.formatter, id);
    auto control = make(Supplies{state.data, state.formatter, [&client, id](std::string_view name) {
                                     client.notify("propertyChanged", {{"id", id}, {"name", name}});
                                 }});
    state.controls.add(
        id,
        std::make_unique<HostedControl>(std::move(control), std::move(sender), state.formatter));
    return Json::object();
}

Json new_control(ServerState& state, const Params& params) {
    return add_control(state, params, [&state](Supplies supplies) {
        return state.form.new_control(std::move(supplies));
    });
}

Json delete_control(ServerState& state, const Params& params) {
    state.controls.remove(params.text("id"));
    return Json::object();
}

Json load_control(ServerState& state, const Params& params) {
    standard::MemoryBag bag;
    for (const auto& [key, value] : params.object("bag").items()) {
        bag.set(key, value_of(value, state.objects));
    }
    return add_control(state, params, [&state, &bag](Supplies supplies) {
        return state.form.load_control(std::move(supplies), bag);
    });
}

Json save_control(ServerState& state, const Params& params) {
    WrittenBag bag(state.objects);
    state.controls.find(params.text("id")).list().WriteProperties(bag);
    return bag.answer();
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
