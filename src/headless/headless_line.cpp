#include "krv/headless/headless_line.h"

#include "krv/platform/error.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace krv::headless {

HeadlessLine::HeadlessLine(HeadlessForm& form, HeadlessControl* control, std::string name)
    : HeadlessPart(form, control, std::move(name), FocusRole::takes_none) {
    follow_ends();
}

void HeadlessLine::follow_ends() {
    Move(std::min(x1_, x2_), std::min(y1_, y2_), std::abs(x2_ - x1_), std::abs(y2_ - y1_));
}

bool HeadlessLine::TabStop() const {
    fail_without_tab_stop();
}

void HeadlessLine::SetTabStop(bool /*tab_stop*/) {
    fail_without_tab_stop();
}

void HeadlessLine::fail_without_tab_stop() const {
    throw platform::RuntimeError(platform::error_number::no_such_member,
                                 "Object doesn't support this property or method",
                                 std::string(name()));
}

} // namespace krv::headless
