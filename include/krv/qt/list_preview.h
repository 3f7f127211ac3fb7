#pragma once

#include "krv/platform/data_access.h"
#include "krv/platform/formatter.h"
#include "krv/platform/property_page_site.h"
#include "krv/qt/message_handler.h"
#include "krv/qt/page_draft.h"

#include <QWidget>

#include <memory>

namespace krv::qt {

class KarvoListWidget;

/// A control that shows what stands on a property page: with example rows, or with the records that
/// it was told to load. It opens a database for `load` only.
class ListPreview : public QWidget {
    Q_OBJECT

public:
    /// \param data_access  null: a preview that cannot load records
    ListPreview(std::shared_ptr<platform::DataAccess> data_access,
                std::shared_ptr<const platform::Formatter> formatter,
                QWidget* parent = nullptr);

    /// Takes over what a page does not show: captions, colours, keys. What the control does not
    /// have stays as it is.
    void follow(platform::AutomationObject& control);

    /// Shows a page. A setting that the list refuses stays as it was.
    void show_draft(const PageDraft& draft);

    /// Empty: messages of the list are shown in modal boxes.
    void set_message_handler(MessageHandler handler);

    /// Shows the records of the source that the draft names, until the next `show_examples`.
    /// \throws RuntimeError for a value that cannot be read or shown
    void load();
    void show_examples();

    KarvoListWidget& widget() noexcept { return *widget_; }

private:
    void show_columns(const PageColumns& columns);
    void show_rows();

    std::shared_ptr<const platform::Formatter> formatter_;
    KarvoListWidget* widget_;
    MessageHandler message_handler_;
    PageDraft draft_;
    bool shows_records_ = false;
};

} // namespace krv::qt
