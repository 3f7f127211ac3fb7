#pragma once

#include "krv/headless/page_check_box.h"
#include "krv/headless/page_combo_box.h"
#include "krv/headless/page_editor.h"
#include "krv/headless/page_entry_box.h"
#include "krv/headless/page_file_dialog.h"
#include "krv/headless/page_tab_strip.h"
#include "krv/platform/life.h"
#include "krv/propertypage/property_page.h"

#include <cstdint>
#include <functional>
#include <string_view>

namespace krv::headless {

class HeadlessForm;

/// The editors of a property page without a screen, one of them with the focus or none, and the
/// developer in front of them. It shares the form's message queue; its focus is its own, and only
/// the page and the developer move it.
///
/// It may be destroyed inside anything that it tells, after the `pKrvList` that works with it.
class HeadlessPage {
public:
    /// \param form  outlives the page
    explicit HeadlessPage(HeadlessForm& form);

    HeadlessPage(const HeadlessPage&) = delete;
    HeadlessPage& operator=(const HeadlessPage&) = delete;

    PageEditors editors();

    /// The editor with this name, spelled exactly; null when there is none.
    PageEditor* editor(std::string_view name) noexcept;

    HeadlessFileDialog& file_dialog() noexcept { return CommonDialog1; }

    // What a developer does: queued behind what is waiting, and worked through in the turn of the
    // message loop that each member gives before it returns. The first error of a handler comes out.
    // Disabled editors ignore what is typed and clicked.

    /// The focus moves to the editor; the one that had it loses it first.
    /// \throws RuntimeError 5 when the editor is disabled
    void enter(PageEditor& editor);

    /// The focus leaves the editor, to none; nothing happens when it is not there.
    void leave(PageEditor& editor);

    /// One change of the text.
    void text(PageEditor& editor, std::string_view text);

    /// \param index  position in a list, from 0, or tab, from 1; check boxes have none
    void click(PageEditor& editor, std::int32_t index = 0);

    void double_click(PageEditor& editor);

private:
    void act(PageEditor& editor, std::function<void(PageEditor&)> step);

    template <class Act>
    void act_on_enabled(PageEditor& editor, Act act);

    PageFocus focus_;

    HeadlessEntryBox txtDataBaseName{focus_, "txtDataBaseName"};
    HeadlessEntryBox txRecordSource{focus_, "txRecordSource"};
    HeadlessEntryBox txConnection{focus_, "txConnection"};
    HeadlessEntryBox txtCols{focus_, "txtCols"};
    HeadlessEntryBox txtRows{focus_, "txtRows"};
    HeadlessEntryBox txtLineNumberColumn{focus_, "txtLineNumberColumn"};
    HeadlessCheckBox chkOkVisible{focus_, "chkOkVisible"};
    HeadlessCheckBox chkCopyVisible{focus_, "chkCopyVisible"};
    HeadlessCheckBox chkDeleteVisible{focus_, "chkDeleteVisible"};
    HeadlessCheckBox chkInsertVisible{focus_, "chkInsertVisible"};
    HeadlessCheckBox chkAddVisible{focus_, "chkAddVisible"};
    HeadlessCheckBox chkEnabled{focus_, "chkEnabled"};
    HeadlessCheckBox chkAutoAdd{focus_, "chkAutoAdd"};
    HeadlessTabStrip TabStrip1{focus_, "TabStrip1"};
    HeadlessEntryBox txtCaption{focus_, "txtCaption"};
    HeadlessEntryBox txtColWidth{focus_, "txtColWidth"};
    HeadlessComboBox cmbAlignment{focus_, "cmbAlignment", HeadlessComboBox::Typing::none};
    HeadlessComboBox cmbDataField{focus_, "cmbDataField", HeadlessComboBox::Typing::allowed};
    HeadlessComboBox cmbDataType{focus_, "cmbDataType", HeadlessComboBox::Typing::none};
    HeadlessEntryBox txtFieldLength{focus_, "txtFieldLength"};
    HeadlessEntryBox txtFormat{focus_, "txtFormat"};
    HeadlessCheckBox chkEditable{focus_, "chkEditable"};
    HeadlessCheckBox chkIsNecessary{focus_, "chkIsNecessary"};
    HeadlessFileDialog CommonDialog1;

    platform::LifeToken life_;
};

} // namespace krv::headless
