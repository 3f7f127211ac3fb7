#include "server/page_site.h"

#include "krv/control/control_object.h"
#include "krv/platform/error.h"

#include <cstddef>
#include <utility>

namespace krv::server {

using platform::RuntimeError;

void PageSite::select(const std::vector<std::string>& ids) {
    std::vector<Selected> selection;
    for (const std::string& id : ids) {
        selection.push_back({id, controls_.find(id).list().watch()});
    }
    selection_ = std::move(selection);
}

std::shared_ptr<platform::AutomationObject> PageSite::SelectedControls(std::int32_t index) {
    if (index < 0 || index >= SelectedControlsCount()) {
        throw RuntimeError(
            platform::error_number::subscript_out_of_range, "Subscript out of range", "krvList3");
    }
    const Selected& selected = selection_[static_cast<std::size_t>(index)];
    if (selected.watch.expired()) {
        platform::fail_object_not_set();
    }
    return std::make_shared<automation::ControlObject>(controls_.find(selected.id).list());
}

void PageSite::SetChanged(bool changed) {
    changed_ = changed;
    if (changed) {
        client_.notify("pageChanged", Json::object());
    }
}

} // namespace krv::server
