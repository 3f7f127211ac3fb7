#pragma once

#include "krv/headless/form_part.h"
#include "krv/platform/value.h"

#include <string>

namespace krv::headless {

/// An object of the host that a control can hand the focus to. One that takes the focus counts as a
/// part of the form, but Tab never stops at it. Made by `HeadlessForm::make_object`; it may live
/// longer than the form, and takes no focus then.
class HostObject final : public platform::Object {
public:
    HostObject(HeadlessForm& form, std::string name, FocusRole role);

    /// \throws RuntimeError 5 when it takes no focus
    void SetFocus() override { part_.take_focus(); }

    /// How the form sees it.
    FormPart& part() noexcept { return part_; }

private:
    class Part final : public FormPart {
    public:
        Part(HeadlessForm& form, std::string name, FocusRole role);

    protected:
        void drop_events() override {}
    };

    Part part_;
};

} // namespace krv::headless
