#include "krv/control/automation.h"
#include "krv/control/karvo_list.h"
#include "krv/platform/error.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>

namespace krv::automation {

namespace {

namespace error_number = platform::error_number;
using platform::Value;

/// No member takes more.
constexpr std::size_t most_arguments = 3;

using Arguments = std::array<Value, most_arguments>;

[[noreturn]] void fail(std::int32_t number, const char* description, std::string_view member) {
    throw platform::RuntimeError(
        number, std::string(description) + ": '" + std::string(member) + "'", "krvList3");
}

[[noreturn]] void fail_unknown(std::string_view name) {
    fail(error_number::no_such_member, "Object doesn't support this property or method", name);
}

const Member& find(std::string_view name) {
    static const auto by_name = [] {
        std::unordered_map<std::string_view, const Member*> index;
        for (const Member& member : members()) {
            index.emplace(member.name, &member);
        }
        return index;
    }();
    const auto found = by_name.find(name);
    if (found == by_name.end()) {
        fail_unknown(name);
    }
    return *found->second;
}

void require_access(const Member& member, Access access) {
    const bool is_property = member.kind == Kind::property;
    switch (access) {
    case Access::get:
        if (!member.get) {
            fail_unknown(member.name);
        }
        return;
    case Access::put:
        if (!is_property) {
            fail_unknown(member.name);
        }
        if (!member.put) {
            fail(error_number::property_is_read_only, "Property can't be set", member.name);
        }
        return;
    case Access::putref:
        if (!member.putref) {
            fail_unknown(member.name);
        }
        return;
    case Access::call:
        if (is_property) {
            fail_unknown(member.name);
        }
        return;
    }
}

void require_count(const Member& member, std::size_t arguments) {
    const auto least = static_cast<std::size_t>(std::count_if(
        member.parameters.begin(), member.parameters.end(), [](const Parameter& parameter) {
            return !parameter.optional;
        }));
    if (arguments < least || arguments > member.parameters.size()) {
        fail(error_number::wrong_number_of_arguments,
             "Wrong number of arguments or invalid property assignment",
             member.name);
    }
}

/// An optional argument that is not given is False.
std::span<Value> convert_all(const Member& member,
                             std::span<const Value> given,
                             const platform::Formatter& formatter,
                             Arguments& converted) {
    const std::size_t count = member.parameters.size();
    for (std::size_t i = 0; i < count; ++i) {
        converted[i] = i < given.size() ? convert(given[i], member.parameters[i].type, formatter)
                                        : Value(platform::ValueView::boolean(false));
    }
    return std::span(converted).first(count);
}

void assign(KarvoList& list,
            const Member& member,
            std::span<const Value> arguments,
            const Value& value) {
    Arguments converted;
    const std::span<const Value> indexes =
        convert_all(member, arguments, list.formatter(), converted);
    member.write(list, indexes, convert(value, member.type, list.formatter()));
}

} // namespace

const Member& require(std::string_view name, Access access, std::size_t arguments) {
    const Member& member = find(name);
    require_access(member, access);
    require_count(member, arguments);
    return member;
}

Value get(const KarvoList& list, std::string_view name, std::span<const Value> arguments) {
    const Member& member = require(name, Access::get, arguments.size());
    Arguments converted;
    return member.read(list, convert_all(member, arguments, list.formatter(), converted));
}

void put(KarvoList& list,
         std::string_view name,
         std::span<const Value> arguments,
         const Value& value) {
    assign(list, require(name, Access::put, arguments.size()), arguments, value);
}

void putref(KarvoList& list,
            std::string_view name,
            std::span<const Value> arguments,
            const Value& value) {
    assign(list, require(name, Access::putref, arguments.size()), arguments, value);
}

Value call(KarvoList& list, std::string_view name, std::span<Value> arguments) {
    const Member& member = require(name, Access::call, arguments.size());
    Arguments converted;
    Value result = member.run(list, convert_all(member, arguments, list.formatter(), converted));
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (member.parameters[i].by_ref) {
            arguments[i] = std::move(converted[i]);
        }
    }
    return result;
}

} // namespace krv::automation
