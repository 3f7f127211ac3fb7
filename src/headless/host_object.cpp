#include "krv/headless/host_object.h"

#include <utility>

namespace krv::headless {

HostObject::HostObject(HeadlessForm& form, std::string name, FocusRole role)
    : part_(form, std::move(name), role) {}

HostObject::Part::Part(HeadlessForm& form, std::string name, FocusRole role)
    : FormPart(form, nullptr, std::move(name), role) {
    set_tab_stop(false);
}

} // namespace krv::headless
