#include "server/methods.h"

#include "krv/control/automation.h"

#include <string>

namespace krv::server {

namespace {

Json type_name(automation::Type type) {
    return type == automation::Type::none ? Json() : Json(automation::name_of(type));
}

Json describe_parameters(std::span<const automation::Parameter> parameters) {
    Json list = Json::array();
    for (const automation::Parameter& parameter : parameters) {
        list.push_back({{"name", parameter.name},
                        {"type", type_name(parameter.type)},
                        {"byref", parameter.by_ref},
                        {"optional", parameter.optional}});
    }
    return list;
}

Json describe_members() {
    Json list = Json::array();
    for (const automation::Member& member : automation::members()) {
        const bool is_method = member.kind == automation::Kind::method;
        list.push_back({{"name", member.name},
                        {"kind", is_method ? "method" : "property"},
                        {"type", type_name(member.type)},
                        {"params", describe_parameters(member.parameters)},
                        {"get", member.get},
                        {"put", member.put},
                        {"putref", member.putref}});
    }
    return list;
}

Json describe_events() {
    Json list = Json::array();
    for (const automation::Event& event : automation::events()) {
        list.push_back({{"id", event.id},
                        {"name", event.name},
                        {"params", describe_parameters(event.parameters)}});
    }
    return list;
}

Json describe_enumerations() {
    Json all = Json::object();
    for (const automation::Enumeration& enumeration : automation::enumerations()) {
        Json& values = all[std::string(enumeration.name)];
        for (const automation::EnumerationValue& value : enumeration.values) {
            values[std::string(value.name)] = value.value;
        }
    }
    return all;
}

Json initialize(ServerState& state, const Params& /*params*/) {
    return {{"name", "krvList3"}, {"version", KRV_VERSION}, {"backend", state.form.backend()}};
}

Json describe(ServerState& /*state*/, const Params& /*params*/) {
    return {{"members", describe_members()},
            {"events", describe_events()},
            {"enums", describe_enumerations()}};
}

Json shut_down(ServerState& state, const Params& /*params*/) {
    state.end();
    return Json::object();
}

constexpr Method methods[] = {
    {"initialize", initialize}, {"describe", describe}, {"shutdown", shut_down}};

} // namespace

std::span<const Method> session_methods() {
    return methods;
}

} // namespace krv::server
