#include "qt/page/property_page_rooms.h"

#include "krv/platform/error.h"

#include <algorithm>
#include <utility>

namespace krv::qt {

PropertyPageWidget::Rooms::Rooms(PropertyPageWidget& widget, const PropertyPageSupplies& supplies)
    : site(supplies.site)
    , data_access(supplies.data_access)
    , formatter(supplies.formatter)
    , surface(Surface::make(widget))
    , own_application(surface)
    , application(supplies.application != nullptr ? *supplies.application : own_application)
    , txtDataBaseName(*surface, "txtDataBaseName")
    , txRecordSource(*surface, "txRecordSource")
    , txConnection(*surface, "txConnection")
    , txtCols(*surface, "txtCols")
    , txtRows(*surface, "txtRows")
    , txtLineNumberColumn(*surface, "txtLineNumberColumn")
    , chkOkVisible(*surface, "chkOkVisible")
    , chkCopyVisible(*surface, "chkCopyVisible")
    , chkDeleteVisible(*surface, "chkDeleteVisible")
    , chkInsertVisible(*surface, "chkInsertVisible")
    , chkAddVisible(*surface, "chkAddVisible")
    , chkEnabled(*surface, "chkEnabled")
    , chkAutoAdd(*surface, "chkAutoAdd")
    , TabStrip1(*surface, "TabStrip1")
    , txtCaption(*surface, "txtCaption")
    , txtColWidth(*surface, "txtColWidth")
    , cmbAlignment(*surface, "cmbAlignment", QtComboBox::Typing::none)
    , cmbDataField(*surface, "cmbDataField", QtComboBox::Typing::allowed)
    , cmbDataType(*surface, "cmbDataType", QtComboBox::Typing::none)
    , txtFieldLength(*surface, "txtFieldLength")
    , txtFormat(*surface, "txtFormat")
    , chkEditable(*surface, "chkEditable")
    , chkIsNecessary(*surface, "chkIsNecessary")
    , CommonDialog1(widget) {
    surface->set_error_handler([this](const std::exception_ptr& error) { show(error); });
    page = std::make_unique<pKrvList>(
        page_editors(), PageSurroundings{supplies.site, application, *data_access, *formatter});
}

PropertyPageWidget::Rooms::~Rooms() {
    surface->close();
}

template <class Base>
std::array<Base*, PropertyPageWidget::Rooms::editor_count> PropertyPageWidget::Rooms::all() {
    return {&txtDataBaseName,  &txRecordSource,      &txConnection,  &txtCols,
            &txtRows,          &txtLineNumberColumn, &chkOkVisible,  &chkCopyVisible,
            &chkDeleteVisible, &chkInsertVisible,    &chkAddVisible, &chkEnabled,
            &chkAutoAdd,       &TabStrip1,           &txtCaption,    &txtColWidth,
            &cmbAlignment,     &cmbDataField,        &cmbDataType,   &txtFieldLength,
            &txtFormat,        &chkEditable,         &chkIsNecessary};
}

std::array<PageEditor*, PropertyPageWidget::Rooms::editor_count>
PropertyPageWidget::Rooms::handles() {
    return all<PageEditor>();
}

std::array<platform::Editor*, PropertyPageWidget::Rooms::editor_count>
PropertyPageWidget::Rooms::editors() {
    return all<platform::Editor>();
}

PageEditors PropertyPageWidget::Rooms::page_editors() {
    return {txtDataBaseName,     txRecordSource, txConnection,   txtCols,          txtRows,
            txtLineNumberColumn, chkOkVisible,   chkCopyVisible, chkDeleteVisible, chkInsertVisible,
            chkAddVisible,       chkEnabled,     chkAutoAdd,     TabStrip1,        txtCaption,
            txtColWidth,         cmbAlignment,   cmbDataField,   cmbDataType,      txtFieldLength,
            txtFormat,           chkEditable,    chkIsNecessary, CommonDialog1};
}

platform::Editor* PropertyPageWidget::Rooms::editor(std::string_view name) {
    const auto everyone = editors();
    const auto found = std::find_if(
        everyone.begin(), everyone.end(), [name](const auto* one) { return one->Name() == name; });
    return found == everyone.end() ? nullptr : *found;
}

PageEditor* PropertyPageWidget::Rooms::focused() {
    const auto everyone = handles();
    const auto found = std::find_if(everyone.begin(), everyone.end(), [this](const auto* one) {
        return surface->has_focus(*one);
    });
    return found == everyone.end() ? nullptr : *found;
}

void PropertyPageWidget::Rooms::show(const std::exception_ptr& error) {
    std::string text;
    try {
        std::rethrow_exception(error);
    } catch (const platform::RuntimeError& failure) {
        text = failure.description() + "\n\n" +
               PropertyPageWidget::tr("Error %1 (%2)")
                   .arg(failure.number())
                   .arg(qt_text(failure.source()))
                   .toStdString();
    } catch (const std::exception& failure) {
        text = failure.what();
    }
    if (!text.empty() && !surface->closed()) {
        application.MsgBox(text, platform::MessageButtons::ok);
    }
}

void PropertyPageWidget::Rooms::end(std::unique_ptr<Rooms> rooms) {
    const std::shared_ptr<Surface> surface = rooms->surface;
    surface->close();
    surface->set_error_handler({}); // what comes now has no page to be shown on: it is logged
    rooms->fall_silent();
    rooms->page.reset();
    if (surface->loop()->is_active()) {
        for (PageEditor* editor : rooms->handles()) {
            editor->widget()->hide();
            editor->widget()->setParent(nullptr); // the page's widget would take it along
        }
        surface->loop()->bury(std::move(rooms));
    }
}

void PropertyPageWidget::Rooms::fall_silent() {
    for (platform::Editor* editor : editors()) {
        editor->SetEvents(nullptr);
    }
    for (PageEditor* editor : handles()) {
        editor->set_on_touched({});
    }
}

} // namespace krv::qt
