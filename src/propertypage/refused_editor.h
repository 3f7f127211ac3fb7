#pragma once

#include "propertypage/page_state.h"

namespace krv::propertypage {

/// Gives a refused editor the focus back.
/// \throws RuntimeError 5 when it cannot take it
void give_focus_back(PageState& page, platform::Editor& editor);

/// The editor has, or loses, the focus: it is on its way no longer.
void forget_refusal(PageState& page, const platform::Editor& editor);

/// Whether the editor is only left because another, refused one takes the focus back. It is not
/// judged then: two editors that refuse each other would keep their user in boxes for ever.
bool is_left_for_refused(const PageState& page, const platform::Editor& editor);

} // namespace krv::propertypage
