#include "server/object_table.h"

#include "krv/platform/error.h"

#include <utility>

namespace krv::server {

namespace {

using platform::RuntimeError;

constexpr std::int32_t object_required = 424;
constexpr std::int32_t key_taken = 457;

} // namespace

const std::string& ObjectTable::name_of(const std::shared_ptr<platform::Object>& object) {
    static const std::string none;
    if (!object) {
        return none;
    }
    const auto known = names_.find(object.get());
    if (known != names_.end()) {
        return known->second;
    }
    const std::string name = new_name(*object);
    objects_.emplace(name, object);
    return names_.emplace(object.get(), name).first->second;
}

void ObjectTable::add(const std::string& name, std::shared_ptr<platform::Object> object) {
    const auto earlier = objects_.find(name);
    if (earlier != objects_.end()) {
        if (dynamic_cast<const platform::Recordset*>(earlier->second.get()) != nullptr) {
            throw RuntimeError(
                key_taken, "This key is already associated with an element", "krvList3");
        }
        names_.erase(earlier->second.get());
    }
    names_.emplace(object.get(), name);
    objects_.insert_or_assign(name, std::move(object));
}

const std::shared_ptr<platform::Object>& ObjectTable::find(std::string_view name) const {
    const auto found = objects_.find(name);
    if (found == objects_.end()) {
        throw RuntimeError(object_required, "Object required", "krvList3");
    }
    return found->second;
}

std::shared_ptr<platform::Recordset> ObjectTable::recordset(std::string_view name) const {
    auto recordset = std::dynamic_pointer_cast<platform::Recordset>(find(name));
    if (!recordset) {
        throw RuntimeError(platform::error_number::type_mismatch, "Type mismatch", "krvList3");
    }
    return recordset;
}

std::string ObjectTable::new_name(const platform::Object& object) {
    const bool is_recordset = dynamic_cast<const platform::Recordset*>(&object) != nullptr;
    std::size_t& count = is_recordset ? recordsets_ : others_;
    std::string name;
    do {
        name = (is_recordset ? "rs" : "object") + std::to_string(++count);
    } while (objects_.contains(name));
    return name;
}

} // namespace krv::server
