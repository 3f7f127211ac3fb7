#include "server/methods.h"
#include "server/values.h"

#include "krv/control/automation.h"

#include <cstddef>
#include <string>
#include <vector>

namespace krv::server {

namespace {

using automation::Access;
using platform::Value;

std::vector<Value> values_of(const Json& array, const ObjectTable& objects) {
    std::vector<Value> values;
    values.reserve(array.size());
    for (const Json& json : array) {
        values.push_back(value_of(json, objects));
    }
    return values;
}

Json get(ServerState& state, const Params& params) {
    KarvoList& list = state.controls.find(params.text("id")).list();
    const std::string& name = params.text("name");
    const Json& args = params.array("args");
    automation::require(name, Access::get, args.size());
    const std::vector<Value> indexes = values_of(args, state.objects);
    return {{"value", json_of(automation::get(list, name, indexes), state.objects)}};
}

using Put = void (*)(KarvoList&, std::string_view, std::span<const Value>, const Value&);

Json put_by(Put put, Access access, ServerState& state, const Params& params) {
    KarvoList& list = state.controls.find(params.text("id")).list();
    const std::string& name = params.text("name");
    const Json& args = params.array("args");
    const Json& value = params.any("value");
    automation::require(name, access, args.size());
    const std::vector<Value> indexes = values_of(args, state.objects);
    put(list, name, indexes, value_of(value, state.objects));
    return Json::object();
}

Json put(ServerState& state, const Params& params) {
    return put_by(automation::put, Access::put, state, params);
}

Json putref(ServerState& state, const Params& params) {
    return put_by(automation::putref, Access::putref, state, params);
}

/// The arguments as they stand after the call: those by reference may have changed.
Json arguments_after(const automation::Member& member,
                     const Json& args,
                     std::span<const Value> values,
                     ObjectTable& objects) {
    Json result = args;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (member.parameters[i].by_ref) {
            result[i] = json_of(values[i], objects);
        }
    }
    return result;
}

Json call(ServerState& state, const Params& params) {
    HostedControl& control = state.controls.find(params.text("id"));
    const std::string& name = params.text("name");
    const Json& args = params.array("args");
    const automation::Member& member = automation::require(name, Access::call, args.size());
    std::vector<Value> values = values_of(args, state.objects);
    const Value result = automation::call(control.list(), name, values);
    return {{"value", control.is_retired() ? Json() : json_of(result, state.objects)},
            {"args", arguments_after(member, args, values, state.objects)}};
}

Json listen(ServerState& state, const Params& params) {
    state.controls.find(params.text("id")).sender().listen(params.any("events"));
    return Json::object();
}

constexpr Method methods[] = {
    {"get", get}, {"put", put}, {"putref", putref}, {"call", call}, {"listen", listen}};

} // namespace

std::span<const Method> member_methods() {
    return methods;
}

} // namespace krv::server
