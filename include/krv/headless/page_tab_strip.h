#pragma once

#include "krv/headless/page_editor.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace krv::headless {

/// A row of tabs on a page without a screen.
class HeadlessTabStrip final : public HeadlessEditor<platform::TabStrip> {
public:
    using HeadlessEditor::HeadlessEditor;

    std::int32_t Count() const override { return static_cast<std::int32_t>(captions_.size()); }

    void Add(std::string_view caption) override;
    void Remove(std::int32_t index) override;
    void Clear() override;
    std::string Caption(std::int32_t index) const override;

    std::int32_t SelectedIndex() const override { return selected_; }

    void SetSelectedIndex(std::int32_t index) override;

    void click(std::int32_t index) override { SetSelectedIndex(index); }

private:
    void require_tab(std::int32_t index) const;

    std::vector<std::string> captions_;
    std::int32_t selected_ = 0;
};

} // namespace krv::headless
