#pragma once

#include "krv/headless/page_editor.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace krv::headless {

/// A list of texts on a page without a screen, with or without a field to type in.
class HeadlessComboBox final : public HeadlessEditor<platform::ComboBox> {
public:
    enum class Typing { allowed, none };

    HeadlessComboBox(PageFocus& focus, std::string name, Typing typing)
        : HeadlessEditor(focus, std::move(name))
        , typing_(typing) {}

    std::string Text() const override { return text_; }

    /// \throws RuntimeError 383 for a text, other than none, that is not in a list without a field
    void SetText(std::string_view text) override;

    std::int16_t ListCount() const override { return static_cast<std::int16_t>(entries_.size()); }

    std::string List(std::int16_t index) const override { return entry(index).text; }

    std::int32_t ItemData(std::int16_t index) const override { return entry(index).data; }

    void SetItemData(std::int16_t index, std::int32_t data) override;

    std::int16_t ListIndex() const override { return selected_; }

    void SetListIndex(std::int16_t index) override;
    void AddItem(std::string_view text, std::int16_t index) override;
    void Clear() override;

    void type(std::string_view text) override;

    /// \throws RuntimeError 380 for a position outside the list
    void click(std::int32_t index) override;

private:
    struct Entry {
        std::string text;
        std::int32_t data = 0;
    };

    bool is_in_list(std::int32_t index) const noexcept {
        return index >= 0 && index < static_cast<std::int32_t>(entries_.size());
    }

    const Entry& entry(std::int16_t index) const;
    std::int16_t position_of(std::string_view text) const;

    Typing typing_;
    std::vector<Entry> entries_;
    std::string text_;
    std::int16_t selected_ = -1;
};

} // namespace krv::headless
