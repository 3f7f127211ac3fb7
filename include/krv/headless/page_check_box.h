#pragma once

#include "krv/headless/page_editor.h"

#include <cstdint>

namespace krv::headless {

/// A flag on a page without a screen.
class HeadlessCheckBox final : public HeadlessEditor<platform::CheckBox> {
public:
    using HeadlessEditor::HeadlessEditor;

    std::int16_t Value() const override { return value_; }

    /// \throws RuntimeError 380 for a value other than 0 and 1
    void SetValue(std::int16_t value) override;

    /// The other value.
    void click(std::int32_t index) override;

private:
    std::int16_t value_ = 0;
};

} // namespace krv::headless
