#pragma once

#include "krv/platform/property_page_site.h"

#include <memory>
#include <span>
#include <string_view>

namespace krv {

class KarvoList;

namespace automation {

/// A control whose properties are reached by name, for whoever may outlive it: a designer, a
/// property page. Values convert as `automation::convert` does.
class ControlObject final : public platform::AutomationObject {
public:
    explicit ControlObject(KarvoList& list);

    /// \throws RuntimeError 91 when the control is gone; else as `automation::get`
    platform::Value Get(std::string_view member,
                        std::span<const platform::Value> arguments) override;

    /// \throws RuntimeError 91 when the control is gone; else as `automation::put`
    void Put(std::string_view member,
             std::span<const platform::Value> arguments,
             const platform::Value& value) override;

private:
    KarvoList& list();

    KarvoList* list_;
    std::weak_ptr<const void> watch_;
};

} // namespace automation
} // namespace krv
