#include "krv/qt/list_preview.h"

#include "krv/control/control_object.h"
#include "krv/platform/error.h"
#include "krv/qt/karvo_list_widget.h"
#include "qt/page/example_rows.h"

#include <QGuiApplication>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <utility>

namespace krv::qt {

namespace {

constexpr std::int32_t example_rows = 5;

/// What a page does not show; keys before the captions, which name them.
constexpr std::array followed = {"BackColor",      "ButtonsHeight",     "KeyAdd",
                                 "KeyInsert",      "KeyDelete",         "KeyCopy",
                                 "KeyOK",          "AddCaption",        "InsertCaption",
                                 "DeleteCaption",  "CopyCaption",       "OKCaption",
                                 "AddColor",       "InsertColor",       "DeleteColor",
                                 "CopyColor",      "OkColor",           "MoveWithTab",
                                 "EvidenziaColor", "ReadOnlyRecordset", "AutoStartInputOnClick"};

/// The data layer of a preview that opens nothing.
class NoData final : public platform::DataAccess {
public:
    std::shared_ptr<platform::Connection> CreateConnection() override { fail(); }

    std::shared_ptr<platform::Recordset> CreateRecordset() override { fail(); }

private:
    [[noreturn]] static void fail() {
        throw platform::RuntimeError(platform::error_number::invalid_call,
                                     "This preview shows example rows only",
                                     "krvList3");
    }
};

/// Gives the program its title back: a new control sets its own.
class KeptTitle {
public:
    KeptTitle() = default;

    ~KeptTitle() { QGuiApplication::setApplicationDisplayName(title_); }

    KeptTitle(const KeptTitle&) = delete;
    KeptTitle& operator=(const KeptTitle&) = delete;

private:
    QString title_ = QGuiApplication::applicationDisplayName();
};

KarvoListWidget* make_widget(std::shared_ptr<platform::DataAccess> data_access,
                             std::shared_ptr<const platform::Formatter> formatter,
                             QWidget* parent) {
    const KeptTitle title;
    if (data_access == nullptr) {
        data_access = std::make_shared<NoData>();
    }
    return new KarvoListWidget(std::move(data_access), std::move(formatter), parent);
}

/// One setting; one that is refused, or half typed, stays as it was.
template <class Step>
void attempt(Step step) {
    try {
        step();
    } catch (const platform::RuntimeError&) {
        return;
    }
}

} // namespace

ListPreview::ListPreview(std::shared_ptr<platform::DataAccess> data_access,
                         std::shared_ptr<const platform::Formatter> formatter,
                         QWidget* parent)
    : QWidget(parent)
    , formatter_(formatter)
    , widget_(make_widget(std::move(data_access), std::move(formatter), this)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(widget_);
}

void ListPreview::follow(platform::AutomationObject& control) {
    automation::ControlObject own(widget_->list());
    // A key that is no function key is put with a message.
    widget_->set_message_handler([](std::string_view, platform::MessageButtons buttons) {
        return buttons == platform::MessageButtons::ok ? platform::MessageAnswer::ok
                                                       : platform::MessageAnswer::no;
    });
    for (const char* name : followed) {
        attempt([&] { own.Put(name, {}, control.Get(name, {})); });
    }
    widget_->set_message_handler(message_handler_);
}

void ListPreview::set_message_handler(MessageHandler handler) {
    message_handler_ = std::move(handler);
    widget_->set_message_handler(message_handler_);
}

void ListPreview::show_draft(const PageDraft& draft) {
    draft_ = draft;
    KarvoList& list = widget_->list();
    show_columns(draft_.columns);
    attempt([&] {
        list.SetLineNumberColumn(
            formatter_->CLng(platform::ValueView::text(draft_.LineNumberColumn)));
    });
    list.SetAutoAdd(draft_.AutoAdd);
    list.SetEnabled(draft_.Enabled);
    list.SetOkVisible(draft_.OkVisible);
    list.SetCopyVisible(draft_.CopyVisible);
    list.SetDeleteVisible(draft_.DeleteVisible);
    list.SetInsertVisible(draft_.InsertVisible);
    list.SetAddVisible(draft_.AddVisible);
    if (!shows_records_) {
        show_rows();
    }
}

/// Only what is different is put: every put lays the list out.
void ListPreview::show_columns(const PageColumns& columns) {
    KarvoList& list = widget_->list();
    const auto count = static_cast<std::int32_t>(columns.colCaptions.size());
    if (count > 0 && list.Cols() != count) {
        attempt([&] { list.SetCols(count); });
    }
    for (std::int32_t col = 0; col < std::min(count, list.Cols()); ++col) {
        const auto place = static_cast<std::size_t>(col);
        if (list.ColWidth(col) != columns.colWidths[place]) {
            attempt([&] { list.SetColWidth(col, columns.colWidths[place]); });
        }
        if (list.ColAlignment(col) != columns.colAlignments[place]) {
            attempt([&] { list.SetColAlignment(col, columns.colAlignments[place]); });
        }
        if (list.Caption(col) != columns.colCaptions[place]) {
            attempt([&] { list.SetCaption(col, columns.colCaptions[place]); });
        }
        list.SetColEditable(col, columns.colEditable[place]);
        list.SetColDataField(col, columns.colDataFields[place]);
        list.SetColIsNecessary(col, columns.colNecessary[place]);
        list.SetColFieldLength(col, columns.colFieldLengths[place]);
        list.SetColFormat(col, columns.colFormats[place]);
        list.SetColFieldType(col, columns.colFieldTypes[place]);
    }
}

void ListPreview::show_rows() {
    KarvoList& list = widget_->list();
    if (list.Rows() != example_rows) {
        list.SetRows(example_rows);
    }
    const auto count = static_cast<std::int32_t>(draft_.columns.colCaptions.size());
    for (std::int32_t col = 0; col < std::min(count, list.Cols()); ++col) {
        for (std::int32_t row = 0; row < example_rows; ++row) {
            const std::string text =
                col == list.LineNumberColumn()
                    ? std::to_string(row)
                    : example_text(draft_.columns, static_cast<std::size_t>(col), row, *formatter_);
            if (list.TextMatrix(row, col) != text) {
                list.SetTextMatrix(row, col, text);
            }
        }
    }
}

void ListPreview::load() {
    KarvoList& list = widget_->list();
    shows_records_ = true;
    list.SetDataBaseName(draft_.DataBaseName);
    list.SetConnect(draft_.Connect);
    list.SetRecordsource(draft_.Recordsource);
    list.Refresh();
}

void ListPreview::show_examples() {
    if (std::exchange(shows_records_, false)) {
        widget_->list().Svuota();
        show_draft(draft_);
    }
}

} // namespace krv::qt
