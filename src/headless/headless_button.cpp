#include "krv/headless/headless_button.h"

#include "krv/headless/activity.h"
#include "krv/headless/headless_control.h"
#include "krv/platform/keys.h"

namespace krv::headless {

using platform::key_enter;
using platform::key_space;

bool HeadlessButton::is_clicked_by(std::int16_t key_code) const {
    return key_code == key_enter || key_code == key_space;
}

void HeadlessButton::key_down(std::int16_t& key_code, std::int16_t& shift) {
    if (control() != nullptr) {
        control()->key_down(key_code, shift);
    }
}

void HeadlessButton::click(const Mouse& mouse) {
    if (mouse.button == 1 && events_ != nullptr) {
        const Activity activity(form());
        events_->Click();
    }
}

} // namespace krv::headless
