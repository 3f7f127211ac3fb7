#include "server/event_sender.h"

#include "server/params.h"
#include "server/values.h"

#include "krv/platform/error.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace krv::server {

namespace {

using platform::RuntimeError;
using platform::Value;

constexpr std::int32_t automation_error = 440;

std::string text_or(const Json& object, std::string_view name, std::string_view other) {
    const auto found = object.is_object() ? object.find(name) : object.end();
    const bool is_text = found != object.end() && found->is_string() && !found->empty() &&
                         !found->get_ref<const std::string&>().empty();
    return is_text ? found->get<std::string>() : std::string(other);
}

std::int32_t number_or(const Json& object, std::string_view name, std::int32_t other) {
    using Limits = std::numeric_limits<std::int32_t>;
    const auto found = object.is_object() ? object.find(name) : object.end();
    if (found == object.end() || !found->is_number()) {
        return other;
    }
    const auto number = found->get<double>();
    const bool fits = number >= Limits::min() && number <= Limits::max();
    const bool names_an_error = fits && number == std::trunc(number) && number != 0;
    return names_an_error ? static_cast<std::int32_t>(number) : other;
}

/// The error that a host's handler raised. Whatever of it is missing is made up.
RuntimeError error_of(const Json& error) {
    static const Json none = Json::object();
    const auto data = error.is_object() ? error.find("data") : error.end();
    const Json& details = data != error.end() && data->is_object() ? *data : none;
    const std::string message = text_or(error, "message", "Automation error");
    return {number_or(details, "Number", automation_error),
            text_or(details, "Description", message),
            text_or(details, "Source", "host")};
}

/// Deliberate: also a number out of the type's range is a wrong type here, as for a handler that
/// hands back a variable of a foreign type.
Value converted(const Json& json,
                automation::Type type,
                const ObjectTable& objects,
                const platform::Formatter& formatter) {
    try {
        return automation::convert(value_of(json, objects), type, formatter);
    } catch (const RuntimeError&) {
        throw RuntimeError(platform::error_number::type_mismatch, "Type mismatch", "host");
    }
}

const automation::Event& event_named(const std::string& name) {
    for (const automation::Event& event : automation::events()) {
        if (event.name == name) {
            return event;
        }
    }
    fail_parameter("events", "no event " + name);
}

} // namespace

void EventSender::listen(const Json& names) {
    std::bitset<most_events> wanted;
    if (names == "*") {
        wanted.set();
    } else if (names.is_array()) {
        for (const Json& name : names) {
            if (!name.is_string()) {
                fail_parameter("events", "no text");
            }
            wanted.set(static_cast<std::size_t>(event_named(name.get<std::string>()).id));
        }
    } else {
        fail_parameter("events", "neither names nor \"*\"");
    }
    listened_ = wanted;
}

void EventSender::raise(const automation::Event& event, std::span<Value> arguments) {
    if (!listened_.test(static_cast<std::size_t>(event.id))) {
        return;
    }
    Json values = Json::object();
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        values[std::string(event.parameters[i].name)] = json_of(arguments[i], objects_);
    }
    try {
        const Json changes = client_.ask(
            "event",
            {{"id", id_}, {"dispid", event.id}, {"name", event.name}, {"args", std::move(values)}});
        take_back(event, changes, arguments);
    } catch (const ClientError& error) {
        throw error_of(error.error());
    }
}

void EventSender::take_back(const automation::Event& event,
                            const Json& changes,
                            std::span<Value> arguments) const {
    if (!changes.is_object()) {
        return;
    }
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const automation::Parameter& parameter = event.parameters[i];
        const auto change = parameter.by_ref ? changes.find(parameter.name) : changes.end();
        if (change != changes.end()) {
            arguments[i] = converted(*change, parameter.type, objects_, *formatter_);
        }
    }
}

} // namespace krv::server
