#pragma once

#include "krv/platform/data_access.h"
#include "krv/platform/formatter.h"
#include "krv/platform/host.h"
#include "krv/platform/property_page_site.h"
#include "krv/propertypage/property_page.h"
#include "krv/qt/error_handler.h"
#include "krv/qt/file_chooser.h"
#include "krv/qt/message_handler.h"
#include "krv/qt/page_draft.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>

namespace krv::qt {

/// What a property page needs of the program that shows it.
struct PropertyPageSupplies {
    /// The designer: selection and changed flag. Outlives the page.
    platform::PropertyPageSite& site;
    std::shared_ptr<platform::DataAccess> data_access;    ///< not null
    std::shared_ptr<const platform::Formatter> formatter; ///< not null
    /// Message boxes and message loop, outlives the page; null: boxes over the page's window.
    platform::Application* application = nullptr;
};

/// The property page of a `KarvoList` as a widget: its editors, laid out, over a `pKrvList`.
///
/// Handlers of the editors may destroy the widget. What they let out while Qt's event loop calls
/// goes to the error handler, what a call of `page()` causes comes out of that call.
class PropertyPageWidget : public QWidget {
    Q_OBJECT

public:
    /// A page without a selection: `load` fills it.
    explicit PropertyPageWidget(PropertyPageSupplies supplies, QWidget* parent = nullptr);
    ~PropertyPageWidget() override;

    /// Valid as long as the widget.
    pKrvList& page() noexcept;

    /// The selection changed: the page reads the site's first selected control.
    /// \throws what `pKrvList::SelectionChanged` raises
    void load();

    /// What stands on the page now.
    PageDraft draft() const;

    /// Whether the page would give the control something that was neither loaded nor applied.
    bool has_edits() const;

    /// The editor that has the focus loses it, and all that follows is delivered; what handlers let
    /// out goes to the error handler.
    /// \return whether the editor let the developer go. The widget may be gone after a false.
    bool commit();

    /// `commit`, then the page is applied; what that raises goes to the error handler.
    /// \return whether everything was applied. The widget may be gone after a false.
    bool apply();

    /// Empty: errors are shown in a message box, with their number.
    void set_error_handler(ErrorHandler handler);

    /// Hands an error to the error handler.
    void report(const std::exception_ptr& error) noexcept;

    /// Empty: messages are shown in modal boxes. Without effect with an application of the host's.
    void set_message_handler(MessageHandler handler);

    /// Empty: the desktop's dialog is shown.
    void set_file_chooser(FileChooser chooser);

    /// Editors and message loop, for tests and tools. Valid as long as the widget.
    struct Rooms;

    Rooms& rooms() noexcept { return *rooms_; }

signals:
    /// Something on the page is, or may be, different. Comes from the event loop, once for all that
    /// happened meanwhile.
    void draftChanged();

protected:
    void changeEvent(QEvent* event) override;

private:
    bool leave_editor(QPointer<QWidget>& editor);
    /// A number that did not fit was refused when it was typed, and is still shown.
    /// \throws RuntimeError 6 for one, with its editor
    void require_shown_numbers(QPointer<QWidget>& editor);
    bool commit_and(const std::function<void()>& act);
    void plan_draft_change();

    std::unique_ptr<Rooms> rooms_;
    PageDraft stored_; ///< as loaded or applied last
    bool change_is_planned_ = false;
};

} // namespace krv::qt
