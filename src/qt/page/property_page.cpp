#include "krv/qt/property_page.h"

#include "qt/page/page_layout.h"
#include "qt/page/property_page_rooms.h"

#include <QEvent>
#include <QPointer>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <tuple>
#include <utility>

namespace krv::qt {

namespace {

auto parts_of(const PageColumns& columns) {
    return std::tie(columns.colWidths,
                    columns.colCaptions,
                    columns.colEditable,
                    columns.colDataFields,
                    columns.colFieldTypes,
                    columns.colNecessary,
                    columns.colFormats,
                    columns.colFieldLengths);
}

/// The page has one entry for all alignments that it does not know, and sets it by showing them.
bool same_alignment(std::int32_t left, std::int32_t right) {
    const auto shown = [](std::int32_t value) {
        return value == 1 || value == 4 || value == 7 ? value : 0;
    };
    return shown(left) == shown(right);
}

bool same_columns(const PageColumns& left, const PageColumns& right) {
    return parts_of(left) == parts_of(right) && std::equal(left.colAlignments.begin(),
                                                           left.colAlignments.end(),
                                                           right.colAlignments.begin(),
                                                           right.colAlignments.end(),
                                                           same_alignment);
}

auto texts_of(const PageDraft& draft) {
    return std::tie(draft.DataBaseName,
                    draft.Recordsource,
                    draft.Connect,
                    draft.Cols,
                    draft.Rows,
                    draft.LineNumberColumn);
}

auto flags_of(const PageDraft& draft) {
    return std::tie(draft.OkVisible,
                    draft.CopyVisible,
                    draft.DeleteVisible,
                    draft.InsertVisible,
                    draft.AddVisible,
                    draft.Enabled,
                    draft.AutoAdd);
}

} // namespace

bool same_settings(const PageDraft& left, const PageDraft& right) {
    return texts_of(left) == texts_of(right) && flags_of(left) == flags_of(right) &&
           same_columns(left.columns, right.columns);
}

PropertyPageWidget::PropertyPageWidget(PropertyPageSupplies supplies, QWidget* parent)
    : QWidget(parent)
    , rooms_(std::make_unique<Rooms>(*this, supplies)) {
    lay_out_page(*this, *rooms_);
    for (PageEditor* editor : rooms_->handles()) {
        editor->set_on_touched([this] { plan_draft_change(); });
    }
}

PropertyPageWidget::~PropertyPageWidget() {
    Rooms::end(std::move(rooms_));
}

pKrvList& PropertyPageWidget::page() noexcept {
    return *rooms_->page;
}

void PropertyPageWidget::load() {
    const std::shared_ptr<Surface> surface = rooms_->surface;
    const FormLoop::Activity activity(surface->loop());
    page().SelectionChanged();
    if (!surface->closed()) {
        stored_ = draft();
    }
}

bool PropertyPageWidget::has_edits() const {
    return !same_settings(draft(), stored_);
}

PageDraft PropertyPageWidget::draft() const {
    return {rooms_->txtDataBaseName.Text(),
            rooms_->txRecordSource.Text(),
            rooms_->txConnection.Text(),
            rooms_->txtCols.Text(),
            rooms_->txtRows.Text(),
            rooms_->txtLineNumberColumn.Text(),
            rooms_->chkOkVisible.Value() == 1,
            rooms_->chkCopyVisible.Value() == 1,
            rooms_->chkDeleteVisible.Value() == 1,
            rooms_->chkInsertVisible.Value() == 1,
            rooms_->chkAddVisible.Value() == 1,
            rooms_->chkEnabled.Value() == 1,
            rooms_->chkAutoAdd.Value() == 1,
            rooms_->page->columns()};
}

bool PropertyPageWidget::leave_editor(QPointer<QWidget>& editor) {
    const std::shared_ptr<Surface> surface = rooms_->surface;
    const bool done = surface->take_act([&] {
        surface->turn();
        PageEditor* const focused = surface->closed() ? nullptr : rooms_->focused();
        if (focused != nullptr) {
            editor = focused->widget();
            setFocus(Qt::OtherFocusReason); // on the page itself: nobody's
            surface->turn();
        }
    });
    return done && !surface->closed() && rooms_->focused() == nullptr;
}

bool PropertyPageWidget::commit() {
    return commit_and([] {});
}

bool PropertyPageWidget::apply() {
    const std::shared_ptr<Surface> surface = rooms_->surface;
    bool applied = false;
    const bool done = commit_and([this, surface, &applied] {
        page().ApplyChanges();
        // Applying ends early, without an error, when another selection is read meanwhile.
        applied = !surface->closed() && !rooms_->site.Changed();
        if (applied) {
            stored_ = draft();
        }
    });
    return done && applied;
}

void PropertyPageWidget::require_shown_numbers(QPointer<QWidget>& editor) {
    const PageColumns& columns = rooms_->page->columns();
    const auto col = static_cast<std::size_t>(rooms_->TabStrip1.SelectedIndex() - 1);
    const auto require = [&](QtEntryBox& box, const std::vector<std::int16_t>& stored) {
        const platform::Formatter& formatter = *rooms_->formatter;
        if (col < stored.size() && std::nearbyint(formatter.Val(box.Text())) != stored[col]) {
            editor = box.widget();
            throw platform::RuntimeError(platform::error_number::overflow, "Overflow", "krvList3");
        }
    };
    require(rooms_->txtColWidth, columns.colWidths);
    require(rooms_->txtFieldLength, columns.colFieldLengths);
}

bool PropertyPageWidget::commit_and(const std::function<void()>& act) {
    const std::shared_ptr<Surface> surface = rooms_->surface;
    const FormLoop::Activity activity(surface->loop());
    QPointer<QWidget> editor;
    const bool done = leave_editor(editor) &&
                      surface->take_act([this, &editor] { require_shown_numbers(editor); }) &&
                      surface->take_act(act) && !surface->closed();
    if (!surface->closed() && editor && rooms_->focused() == nullptr) {
        editor->setFocus(Qt::OtherFocusReason);
    }
    return done;
}

void PropertyPageWidget::set_error_handler(ErrorHandler handler) {
    if (!handler) {
        handler = [rooms = rooms_.get()](const std::exception_ptr& error) { rooms->show(error); };
    }
    rooms_->surface->set_error_handler(std::move(handler));
}

void PropertyPageWidget::report(const std::exception_ptr& error) noexcept {
    const std::shared_ptr<Surface> surface = rooms_->surface;
    surface->report(error);
}

void PropertyPageWidget::set_message_handler(MessageHandler handler) {
    rooms_->own_application.set_message_handler(std::move(handler));
}

void PropertyPageWidget::set_file_chooser(FileChooser chooser) {
    rooms_->CommonDialog1.set_chooser(std::move(chooser));
}

void PropertyPageWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (rooms_ && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)) {
        rooms_->TabStrip1.tabs().updateGeometry();
    }
}

void PropertyPageWidget::plan_draft_change() {
    if (!std::exchange(change_is_planned_, true)) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                change_is_planned_ = false;
                emit draftChanged();
            },
            Qt::QueuedConnection);
    }
}

} // namespace krv::qt
