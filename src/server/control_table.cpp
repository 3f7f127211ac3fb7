#include "server/control_table.h"

#include "server/params.h"

#include "krv/platform/error.h"

#include <utility>

namespace krv::server {

namespace {

constexpr std::int32_t key_taken = 457;

} // namespace

void ControlTable::require_free(const std::string& id) const {
    if (controls_.contains(id)) {
        throw platform::RuntimeError(
            key_taken, "This key is already associated with an element", "krvList3");
    }
}

void ControlTable::add(const std::string& id, std::unique_ptr<HostedControl> control) {
    controls_.emplace(id, std::move(control));
}

HostedControl& ControlTable::find(std::string_view id) const {
    const auto found = controls_.find(id);
    if (found == controls_.end()) {
        fail_parameter("id", "no control of this id");
    }
    return *found->second;
}

void ControlTable::remove(std::string_view id) {
    const auto found = controls_.find(id);
    if (found == controls_.end()) {
        fail_parameter("id", "no control of this id");
    }
    removed_.push_back(std::move(found->second));
    controls_.erase(found);
    removed_.back()->retire();
}

} // namespace krv::server
