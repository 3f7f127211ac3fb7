#pragma once

#include "document.h"

#include "krv/qt/message_handler.h"

#include <QMainWindow>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace krv::qt {

class ListPreview;
class PropertyPageWidget;

} // namespace krv::qt

namespace krv::designer {

/// The property page of a list and a preview of the list, over a file of settings.
class DesignerWindow : public QMainWindow {
    Q_OBJECT

public:
    enum class Unsaved { save, discard, cancel };

    /// Whom the window asks; a person in front of dialogs unless a program takes the place.
    struct Questions {
        /// What becomes of changes that are not in the file.
        std::function<Unsaved(const QString& name)> unsaved;
        std::function<std::optional<QString>()> file_to_open;
        std::function<std::optional<QString>()> file_to_save;
        /// Messages of the page and of the list, and errors; empty for boxes.
        qt::MessageHandler message;
    };

    explicit DesignerWindow(Surroundings surroundings);
    ~DesignerWindow() override;

    void set_questions(Questions questions);

    Document& document() noexcept { return *document_; }

    qt::PropertyPageWidget& page() noexcept { return *page_; }

    qt::ListPreview& preview() noexcept { return *preview_; }

    /// Shows the settings of a file; when it cannot be read, says why and keeps what is there.
    bool open_file(const QString& file);

    bool is_modified() const;

    /// The page reads the control anew.
    void show_control();

    // What the menu does. False when nothing came of it.

    bool new_file();
    bool open();
    bool save();
    bool save_as();
    bool apply();
    bool load_data();
    void show_examples();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void make_menus();
    void set_up_page();
    void take(std::unique_ptr<Document> document);
    void show_draft();
    void show_title();
    /// False when the user wants to stay.
    bool may_leave();
    bool save_to(const QString& file);
    /// Runs something; an error is shown.
    bool attempt(const std::function<void()>& act);
    void tell(const QString& text);

    Surroundings surroundings_;
    Questions questions_;
    std::unique_ptr<Document> document_; // outlives the page
    qt::PropertyPageWidget* page_ = nullptr;
    qt::ListPreview* preview_ = nullptr;
};

} // namespace krv::designer
