#include "krv/headless/headless_form.h"

#include <algorithm>
#include <utility>

namespace krv::headless {

Activity::Activity(HeadlessForm& form)
    : form_(form) {
    if (form_.activities_ == 0) {
        form_.removed_.clear();
    }
    ++form_.activities_;
}

Activity::~Activity() {
    --form_.activities_;
}

HeadlessForm::HeadlessForm(std::string title)
    : application_(*this, std::move(title))
    , outside_(*this, nullptr, "outside")
    , person_(*this) {}

HeadlessForm::~HeadlessForm() = default;

HeadlessControl& HeadlessForm::add_control(platform::TwipsSingle width,
                                           platform::TwipsSingle height) {
    controls_.push_back(std::make_unique<HeadlessControl>(*this, width, height));
    return *controls_.back();
}

void HeadlessForm::remove_control(HeadlessControl& control) {
    const auto found = std::find_if(controls_.begin(), controls_.end(), [&control](const auto& c) {
        return c.get() == &control;
    });
    if (found == controls_.end()) {
        return;
    }
    control.retire();
    removed_.push_back(std::move(*found));
    controls_.erase(found);
}

std::shared_ptr<HostObject> HeadlessForm::make_object(std::string name, FocusRole role) {
    return std::make_shared<HostObject>(*this, std::move(name), role);
}

void HeadlessForm::turn() {
    const Activity activity(*this);
    queue_.turn();
}

} // namespace krv::headless
