#include "krv/headless/headless_page.h"

#include "krv/headless/headless_form.h"

#include <string>
#include <utility>

namespace krv::headless {

HeadlessPage::HeadlessPage(HeadlessForm& form)
    : focus_(form) {}

PageEditors HeadlessPage::editors() {
    return {txtDataBaseName,     txRecordSource, txConnection,   txtCols,          txtRows,
            txtLineNumberColumn, chkOkVisible,   chkCopyVisible, chkDeleteVisible, chkInsertVisible,
            chkAddVisible,       chkEnabled,     chkAutoAdd,     TabStrip1,        txtCaption,
            txtColWidth,         cmbAlignment,   cmbDataField,   cmbDataType,      txtFieldLength,
            txtFormat,           chkEditable,    chkIsNecessary, CommonDialog1};
}

PageEditor* HeadlessPage::editor(std::string_view name) noexcept {
    return focus_.find(name);
}

void HeadlessPage::act(PageEditor& editor, std::function<void(PageEditor&)> step) {
    HeadlessForm& form = focus_.form();
    form.queue().post(life_, [&editor, step = std::move(step)] { step(editor); });
    form.turn();
}

template <class Act>
void HeadlessPage::act_on_enabled(PageEditor& editor, Act act_on) {
    act(editor, [act_on = std::move(act_on)](PageEditor& target) {
        if (target.is_enabled()) {
            act_on(target);
        }
    });
}

void HeadlessPage::enter(PageEditor& editor) {
    editor.require_focusable();
    act_on_enabled(editor, [](PageEditor& target) { target.take_focus(); });
}

void HeadlessPage::leave(PageEditor& editor) {
    act(editor, [&focus = focus_](PageEditor& target) {
        if (target.has_focus()) {
            focus.move_to(nullptr);
        }
    });
}

void HeadlessPage::text(PageEditor& editor, std::string_view text) {
    act_on_enabled(editor, [typed = std::string(text)](PageEditor& target) { target.type(typed); });
}

void HeadlessPage::click(PageEditor& editor, std::int32_t index) {
    act_on_enabled(editor, [index](PageEditor& target) { target.click(index); });
}

void HeadlessPage::double_click(PageEditor& editor) {
    act_on_enabled(editor, [](PageEditor& target) { target.double_click(); });
}

} // namespace krv::headless
