#pragma once

#include "krv/platform/value.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace krv::platform {

/// An object whose members are reached by name.
class AutomationObject : public Object {
public:
    /// \param arguments  the property's indexes
    /// \throws RuntimeError 438 for an unknown member, 450 for a wrong number of arguments, and
    /// what
    ///         the property raises
    virtual Value Get(std::string_view member, std::span<const Value> arguments) = 0;
    /// \throws RuntimeError as `Get`, 383 for a property that cannot be written, 13 and 6 for a
    /// value
    ///         that does not convert
    virtual void
    Put(std::string_view member, std::span<const Value> arguments, const Value& value) = 0;
};

/// The designer that shows a property page.
class PropertyPageSite {
public:
    virtual ~PropertyPageSite() = default;

    virtual std::int32_t SelectedControlsCount() const = 0;
    /// \param index  from 0
    /// \throws RuntimeError 9 outside the selection, 91 when the control is gone
    virtual std::shared_ptr<AutomationObject> SelectedControls(std::int32_t index) = 0;

    virtual bool Changed() const = 0;
    virtual void SetChanged(bool changed) = 0;
};

} // namespace krv::platform
