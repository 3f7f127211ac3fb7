#pragma once

#include "qt/page/property_page_rooms.h"

namespace krv::qt {

/// Lays the editors out on the page, with their labels, tool tips and names for screen readers.
void lay_out_page(PropertyPageWidget& widget, PropertyPageWidget::Rooms& rooms);

/// The label with the mark of a shortcut before the first letter that is still free; as it is when
/// none is. The marked letter is taken from then on.
QString with_shortcut(const QString& label, QString& taken);

} // namespace krv::qt
