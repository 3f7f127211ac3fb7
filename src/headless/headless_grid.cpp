#include "krv/headless/headless_grid.h"

#include "krv/headless/activity.h"
#include "krv/headless/headless_control.h"
#include "krv/headless/headless_form.h"
#include "krv/standard/measures.h"

#include <utility>

namespace krv::headless {

HeadlessGrid::HeadlessGrid(HeadlessForm& form,
                           HeadlessControl* control,
                           std::string name,
                           standard::GridSelection selection,
                           standard::GridKeys keys)
    : GridFace(form.queue(), selection, form, control, std::move(name))
    , keys_(keys) {}

void HeadlessGrid::raise_row_col_change() {
    if (events() != nullptr) {
        const Activity activity(form());
        events()->RowColChange();
    }
}

void HeadlessGrid::key_down(std::int16_t& key_code, std::int16_t& shift) {
    if (keys_ == standard::GridKeys::surface && control() != nullptr) {
        control()->key_down(key_code, shift);
    } else if (events() != nullptr) {
        const Activity activity(form());
        events()->KeyDown(key_code, shift);
    }
}

void HeadlessGrid::act_on_key(std::int16_t key_code, std::int16_t /*shift*/) {
    flex().scroll_by_key(key_code);
}

void HeadlessGrid::press(const Mouse& mouse) {
    const Activity activity(form());
    flex().mouse_press(standard::whole_twips(mouse.x), standard::whole_twips(mouse.y));
    if (events() != nullptr) {
        events()->MouseDown(mouse.button, mouse.shift, mouse.x, mouse.y);
    }
}

void HeadlessGrid::drag(const Mouse& mouse) {
    flex().mouse_drag(standard::whole_twips(mouse.x), standard::whole_twips(mouse.y));
}

void HeadlessGrid::let_go() {
    flex().mouse_release();
}

void HeadlessGrid::release(const Mouse& mouse) {
    if (events() != nullptr) {
        const Activity activity(form());
        events()->MouseUp(mouse.button, mouse.shift, mouse.x, mouse.y);
    }
}

void HeadlessGrid::click(const Mouse& mouse) {
    if (events() != nullptr) {
        const Activity activity(form());
        events()->Click(mouse.button, mouse.shift, mouse.x, mouse.y);
    }
}

void HeadlessGrid::double_click(const Mouse& /*mouse*/) {
    if (events() != nullptr) {
        const Activity activity(form());
        events()->DblClick();
    }
}

} // namespace krv::headless
