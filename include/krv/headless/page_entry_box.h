#pragma once

#include "krv/headless/page_editor.h"

#include <string>
#include <string_view>

namespace krv::headless {

/// A line of text on a page without a screen.
class HeadlessEntryBox final : public HeadlessEditor<platform::EntryBox> {
public:
    using HeadlessEditor::HeadlessEditor;

    std::string Text() const override { return text_; }

    void SetText(std::string_view text) override;

    void type(std::string_view text) override { SetText(text); }

private:
    std::string text_;
};

} // namespace krv::headless
