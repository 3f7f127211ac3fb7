#pragma once

#include "krv/platform/value.h"

#include <string_view>

namespace krv::platform {

/// The host's store of a control's design-time settings: named values.
class PropertyBag {
public:
    virtual ~PropertyBag() = default;

    /// The stored value, or `default_value` when the key is absent.
    virtual Value ReadProperty(std::string_view key, const Value& default_value) = 0;

    /// Stores the value; one that equals `default_value` is not stored.
    virtual void
    WriteProperty(std::string_view key, const Value& value, const Value& default_value) = 0;
};

} // namespace krv::platform
