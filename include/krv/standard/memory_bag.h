#pragma once

#include "krv/platform/property_store.h"

#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

namespace krv::standard {

/// Whether a bag takes two values for the same: numbers and flags by their number (True is -1),
/// texts character by character, all others never.
bool same_in_bag(platform::ValueView left, platform::ValueView right) noexcept;

/// A property bag in memory, for hosts that keep settings somewhere of their own. Keys are exact:
/// letter case counts.
class MemoryBag final : public platform::PropertyBag {
public:
    struct Entry {
        std::string key;
        platform::Value value;
    };

    MemoryBag() = default;
    MemoryBag(const MemoryBag& other);
    MemoryBag& operator=(const MemoryBag& other);
    MemoryBag(MemoryBag&&) = default;
    MemoryBag& operator=(MemoryBag&&) = default;

    platform::Value ReadProperty(std::string_view key,
                                 const platform::Value& default_value) override;

    /// A value that is the same as the default takes the key out of the bag.
    void WriteProperty(std::string_view key,
                       const platform::Value& value,
                       const platform::Value& default_value) override;

    /// Null when the key is absent. Valid until the key is erased.
    const platform::Value* find(std::string_view key) const;

    /// A key that is there keeps its place; a new one comes last.
    void set(std::string_view key, platform::Value value);

    void erase(std::string_view key);

    /// In the order in which the keys came into the bag.
    const std::list<Entry>& entries() const noexcept { return entries_; }

private:
    using Place = std::list<Entry>::iterator;

    std::list<Entry> entries_;
    std::unordered_map<std::string_view, Place> places_; ///< over the entries' own keys
};

} // namespace krv::standard
