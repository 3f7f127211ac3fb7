#include "krv/headless/scroll_link.h"

namespace krv::headless {

ScrollLink::ScrollLink(standard::FlexGrid& first, standard::FlexGrid& second)
    : first_(first)
    , second_(second)
    , first_end_(*this, first, second)
    , second_end_(*this, second, first) {
    first_.set_view(&first_end_);
    second_.set_view(&second_end_);
}

ScrollLink::~ScrollLink() {
    first_.set_view(nullptr);
    second_.set_view(nullptr);
}

void ScrollLink::follow(const standard::FlexGrid& grid, standard::FlexGrid& other) {
    const std::int64_t offset = grid.scroll_x();
    if (following_ || offset == offset_) {
        return;
    }
    const std::int64_t moved = offset - offset_;
    offset_ = offset;
    following_ = true;
    other.set_scroll_x(offset);
    following_ = false;
    if (on_moved_) {
        on_moved_(moved);
    }
}

} // namespace krv::headless
