#include "qt/page/check_box.h"

#include <QCheckBox>

namespace krv::qt {

QtCheckBox::QtCheckBox(Surface& surface, std::string name)
    : QtEditor(surface, std::move(name))
    , box_(new Gated<QCheckBox>(*this, &surface.root())) {
    adopt(box_);
    QObject::connect(box_, &QCheckBox::toggled, box_, [this] {
        if (!assigning_) {
            tell_of_person(&platform::EditorEvents::Click);
        }
    });
}

std::int16_t QtCheckBox::Value() const {
    return box_->isChecked() ? 1 : 0;
}

void QtCheckBox::SetValue(std::int16_t value) {
    if (value != 0 && value != 1) {
        throw failure(platform::error_number::invalid_property_value, "Invalid property value");
    }
    if (value == Value()) {
        return;
    }
    assigning_ = true;
    box_->setChecked(value == 1);
    assigning_ = false;
    tell(&platform::EditorEvents::Click);
}

void QtCheckBox::click(std::int32_t /*index*/) {
    if (is_enabled()) {
        box_->toggle();
    }
}

} // namespace krv::qt
