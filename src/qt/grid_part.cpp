#include "qt/grid_part.h"

#include "qt/keys.h"

#include <QKeyEvent>

namespace krv::qt {

QtGrid::QtGrid(Surface& surface,
               std::string name,
               standard::GridSelection selection,
               standard::GridKeys keys)
    : Face(surface.queue(), selection, surface, std::move(name))
    , view_(new GridView(flex(), &surface.root()))
    , keys_(keys) {
    adopt(view_);
    surface.add(*this);
    view_->set_owner(this);
}

QtGrid::~QtGrid() {
    // The view draws this part's grid: it may not outlive it.
    delete widget();
}

void QtGrid::SetWidth(platform::TwipsSingle width) {
    Face::SetWidth(width);
    view_->set_size_twips(Width(), Height());
}

void QtGrid::SetHeight(platform::TwipsSingle height) {
    Face::SetHeight(height);
    view_->set_size_twips(Width(), Height());
}

void QtGrid::Move(platform::TwipsSingle left,
                  platform::TwipsSingle top,
                  platform::TwipsSingle width,
                  platform::TwipsSingle height) {
    Face::Move(left, top, width, height);
    view_->set_size_twips(Width(), Height());
}

void QtGrid::act(const std::function<void()>& what) {
    surface().person_acts(what);
}

void QtGrid::mouse_down(std::int16_t button, std::int16_t shift, float x, float y) {
    if (events() != nullptr) {
        events()->MouseDown(button, shift, x, y);
    }
}

void QtGrid::mouse_up(std::int16_t button, std::int16_t shift, float x, float y) {
    if (events() != nullptr) {
        events()->MouseUp(button, shift, x, y);
    }
}

void QtGrid::click(std::int16_t button, std::int16_t shift, float x, float y) {
    if (events() != nullptr && can_take_focus()) { // the release may have hidden the grid
        events()->Click(button, shift, x, y);
    }
}

void QtGrid::double_click() {
    if (events() != nullptr) {
        events()->DblClick();
    }
}

bool QtGrid::key_down(const QKeyEvent& event, const std::function<void(std::int16_t)>& scroll) {
    std::int16_t code = key_code(event);
    std::int16_t shift = shift_state(event);
    surface().key_acts([&] {
        if (!surface().has_focus(*this)) {
            code = 0;
        } else if (!is_told(event)) {
            return;
        } else if (keys_ == standard::GridKeys::surface) {
            surface().key_down(code, shift);
        } else if (events() != nullptr) {
            events()->KeyDown(code, shift);
        }
        if (code != 0 && surface().has_focus(*this)) {
            scroll(code);
        }
    });
    return code != 0;
}

void QtGrid::raise_row_col_change() {
    surface().deliver([this] {
        if (events() != nullptr) {
            events()->RowColChange();
        }
    });
}

} // namespace krv::qt
