#pragma once

#include "krv/qt/property_page.h"
#include "qt/application.h"
#include "qt/page/check_box.h"
#include "qt/page/combo_box.h"
#include "qt/page/entry_box.h"
#include "qt/page/file_dialog.h"
#include "qt/page/tab_strip.h"

#include <array>
#include <memory>
#include <string_view>

namespace krv::qt {

/// The editors, in reading order, and the page over them.
struct PropertyPageWidget::Rooms {
    Rooms(PropertyPageWidget& widget, const PropertyPageSupplies& supplies);
    ~Rooms();
    Rooms(const Rooms&) = delete;
    Rooms& operator=(const Rooms&) = delete;

    static constexpr std::size_t editor_count = 23;

    /// In reading order.
    std::array<PageEditor*, editor_count> handles();
    /// The same as the page knows them.
    std::array<platform::Editor*, editor_count> editors();
    PageEditors page_editors();

    /// Null when there is none.
    platform::Editor* editor(std::string_view name);

    /// The editor with the focus; null for none.
    PageEditor* focused();

    /// Shows an error with its number.
    void show(const std::exception_ptr& error);

    /// Lets go of the rooms when their widget goes, which may be inside an editor's handler.
    static void end(std::unique_ptr<Rooms> rooms);

    platform::PropertyPageSite& site;
    std::shared_ptr<platform::DataAccess> data_access;
    std::shared_ptr<const platform::Formatter> formatter;
    std::shared_ptr<Surface> surface;
    QtApplication own_application;
    platform::Application& application;

    QtEntryBox txtDataBaseName;
    QtEntryBox txRecordSource;
    QtEntryBox txConnection;
    QtEntryBox txtCols;
    QtEntryBox txtRows;
    QtEntryBox txtLineNumberColumn;
    QtCheckBox chkOkVisible;
    QtCheckBox chkCopyVisible;
    QtCheckBox chkDeleteVisible;
    QtCheckBox chkInsertVisible;
    QtCheckBox chkAddVisible;
    QtCheckBox chkEnabled;
    QtCheckBox chkAutoAdd;
    QtTabStrip TabStrip1;
    QtEntryBox txtCaption;
    QtEntryBox txtColWidth;
    QtComboBox cmbAlignment;
    QtComboBox cmbDataField;
    QtComboBox cmbDataType;
    QtEntryBox txtFieldLength;
    QtEntryBox txtFormat;
    QtCheckBox chkEditable;
    QtCheckBox chkIsNecessary;
    QtFileDialog CommonDialog1;

    std::unique_ptr<pKrvList> page;

private:
    template <class Base>
    std::array<Base*, editor_count> all();

    void fall_silent();
};

} // namespace krv::qt
