#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace krv::headless {

/// One line of text with a caret and a selection, edited as a person does. Texts are UTF-8 and kept
/// exactly; places and lengths count UTF-16 code units. A place inside a surrogate pair may be
/// selected by code; an edit there takes the whole character.
class TextEdit {
public:
    const std::string& text() const noexcept { return text_; }

    std::int32_t length() const noexcept { return length_; }

    /// Where the selection, or the caret, stands; 0 to `length()`.
    std::int32_t selection_start() const noexcept { return anchor_ < caret_ ? anchor_ : caret_; }

    std::int32_t selection_length() const noexcept {
        return anchor_ < caret_ ? caret_ - anchor_ : anchor_ - caret_;
    }

    /// Replaces everything; the caret stands at 0 then.
    void assign(std::string_view text);

    /// Clipped to the text; not negative.
    void select(std::int32_t start, std::int32_t length);

    // Each of these answers whether the text is different now.

    /// Replaces the selection by the whole of `inserted`, or does nothing when the text would
    /// become longer than `limit`; 0 and less: no limit.
    bool insert(std::string_view inserted, std::int32_t limit);

    /// As `insert`, with as many characters of it as fit.
    bool insert_what_fits(std::string_view inserted, std::int32_t limit);

    /// Removes the selection, else the character before the caret.
    bool erase_backwards();

    /// Removes the selection, else the character behind the caret.
    bool erase_forwards();

    // Caret movements; `extend` keeps the selection's other end.

    void move_left(bool extend);
    void move_right(bool extend);
    void move_home(bool extend);
    void move_end(bool extend);

private:
    bool replace_selection(std::string_view inserted);
    void move_caret(std::int32_t place, bool extend);

    std::string text_;
    std::int32_t length_ = 0;
    std::int32_t anchor_ = 0;
    std::int32_t caret_ = 0;
};

} // namespace krv::headless
