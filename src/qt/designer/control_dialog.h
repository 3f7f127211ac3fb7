#pragma once

class QDesignerFormWindowInterface;

namespace krv::qt {

class KarvoListWidget;

/// Shows the property page of a control on a form. The page works on a copy; what it applied goes
/// to the control as one step of the form's undo, and only what is different then.
void edit_control(QDesignerFormWindowInterface& form, KarvoListWidget& widget);

} // namespace krv::qt
