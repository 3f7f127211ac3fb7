#pragma once

#include "qt/glyph_atlas.h"

#include <string_view>
#include <vector>

namespace krv::qt {

/// A line of letters side by side, shortened with an ellipsis when it is too wide. Reused from
/// text to text, it allocates nothing.
class LetterLine {
public:
    struct Placed {
        Letter* letter;
        float x; ///< of the pen from the line's beginning, in device pixels
    };

    /// \param width  device pixels that there are
    /// \return       false when the text needs shaping; the line is of no use then
    bool set(GlyphAtlas& atlas, std::string_view utf8, float width);

    const std::vector<Placed>& letters() const noexcept { return letters_; }

    float width() const noexcept { return width_; }

private:
    bool shorten(GlyphAtlas& atlas, float width);

    std::vector<Placed> letters_;
    float width_ = 0;
};

} // namespace krv::qt
