#include "krv/control/control_object.h"

#include "krv/control/automation.h"
#include "krv/control/karvo_list.h"
#include "krv/platform/error.h"

namespace krv::automation {

using platform::Value;

ControlObject::ControlObject(KarvoList& list)
    : list_(&list)
    , watch_(list.watch()) {}

Value ControlObject::Get(std::string_view member, std::span<const Value> arguments) {
    return automation::get(list(), member, arguments);
}

void ControlObject::Put(std::string_view member,
                        std::span<const Value> arguments,
                        const Value& value) {
    automation::put(list(), member, arguments, value);
}

KarvoList& ControlObject::list() {
    if (watch_.expired()) {
        platform::fail_object_not_set();
    }
    return *list_;
}

} // namespace krv::automation
