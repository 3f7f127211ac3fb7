#include "propertypage/refused_editor.h"

namespace krv::propertypage {

void give_focus_back(PageState& page, platform::Editor& editor) {
    page.takes_focus_back = &editor;
    try {
        editor.SetFocus();
    } catch (...) {
        page.takes_focus_back = nullptr;
        throw;
    }
}

void forget_refusal(PageState& page, const platform::Editor& editor) {
    if (page.takes_focus_back == &editor) {
        page.takes_focus_back = nullptr;
    }
}

bool is_left_for_refused(const PageState& page, const platform::Editor& editor) {
    return page.takes_focus_back != nullptr && page.takes_focus_back != &editor;
}

} // namespace krv::propertypage
