#pragma once

#include "qt/page/editor.h"

class QCheckBox;

namespace krv::qt {

/// A flag of the page over a check box.
class QtCheckBox final : public QtEditor<platform::CheckBox> {
public:
    QtCheckBox(Surface& surface, std::string name);

    std::int16_t Value() const override;
    /// \throws RuntimeError 380 for a value other than 0 and 1
    void SetValue(std::int16_t value) override;

    void click(std::int32_t index) override;

    QCheckBox& box() const noexcept { return *box_; }

private:
    QCheckBox* box_;
    bool assigning_ = false;
};

} // namespace krv::qt
