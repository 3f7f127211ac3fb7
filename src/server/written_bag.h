#pragma once

#include "server/json.h"
#include "server/values.h"

#include "krv/platform/property_store.h"
#include "krv/standard/memory_bag.h"

namespace krv::server {

/// A bag that a client gets: what it holds, and every write in order.
class WrittenBag final : public platform::PropertyBag {
public:
    /// \param objects  outlives this
    explicit WrittenBag(ObjectTable& objects)
        : objects_(objects) {}

    platform::Value ReadProperty(std::string_view key,
                                 const platform::Value& default_value) override {
        return bag_.ReadProperty(key, default_value);
    }

    void WriteProperty(std::string_view key,
                       const platform::Value& value,
                       const platform::Value& default_value) override {
        bag_.WriteProperty(key, value, default_value);
        writes_.push_back({key, json_of(value, objects_), json_of(default_value, objects_)});
    }

    Json answer() const {
        Json held = Json::object();
        for (const standard::MemoryBag::Entry& entry : bag_.entries()) {
            held[entry.key] = json_of(entry.value, objects_);
        }
        return {{"bag", std::move(held)}, {"writes", writes_}};
    }

private:
    ObjectTable& objects_;
    standard::MemoryBag bag_;
    Json writes_ = Json::array();
};

} // namespace krv::server
