#include "document.h"

#include "krv/control/control_object.h"
#include "krv/control/karvo_list.h"
#include "krv/platform/error.h"
#include "krv/providers/sqlite.h"
#include "krv/qt/karvo_list_widget.h"
#include "krv/standard/ado.h"
#include "krv/standard/provider_registry.h"
#include "krv/standard/regional_settings.h"
#include "krv/standard/value_formatter.h"

#ifdef KRV_HAS_JET
#include "krv/providers/jet.h"
#endif
#ifdef KRV_HAS_ODBC
#include "krv/providers/odbc.h"
#endif

#include <QGuiApplication>

namespace krv::designer {

namespace {

/// Gives the program another title as long as it lives.
class OtherTitle {
public:
    explicit OtherTitle(const QString& title) { QGuiApplication::setApplicationDisplayName(title); }

    ~OtherTitle() { QGuiApplication::setApplicationDisplayName(before_); }

    OtherTitle(const OtherTitle&) = delete;
    OtherTitle& operator=(const OtherTitle&) = delete;

private:
    QString before_ = QGuiApplication::applicationDisplayName();
};

} // namespace

Surroundings make_surroundings() {
    standard::ProviderRegistry::Providers all;
    all.sqlite = providers::make_sqlite_provider();
#ifdef KRV_HAS_JET
    all.jet = providers::make_jet_provider();
#endif
#ifdef KRV_HAS_ODBC
    all.odbc = providers::make_odbc_provider();
#endif
    return {std::make_shared<standard::AdoDataAccess>(
                std::make_shared<const standard::ProviderRegistry>(std::move(all))),
            std::make_shared<standard::ValueFormatter>(standard::system_regional_settings())};
}

Document::Document(const Surroundings& surroundings)
    : widget_(
          std::make_unique<qt::KarvoListWidget>(surroundings.data_access, surroundings.formatter))
    , title_(QGuiApplication::applicationDisplayName())
    , stored_(text()) {}

Document::Document(const Surroundings& surroundings, const std::filesystem::path& file)
    : path_(file)
    , bag_file_(standard::BagFile::load(file))
    , widget_(std::make_unique<qt::KarvoListWidget>(
          surroundings.data_access, surroundings.formatter, bag_file_.bag()))
    , title_(QGuiApplication::applicationDisplayName())
    , stored_(text()) {}

Document::~Document() = default;

KarvoList& Document::list() noexcept {
    return widget_->list();
}

std::string Document::text() const {
    const OtherTitle title(title_);
    standard::BagFile file = bag_file_; // with the comments of the file
    file.store(widget_->list());
    return file.text();
}

void Document::save(const std::filesystem::path& file) {
    const OtherTitle title(title_);
    bag_file_.store(widget_->list());
    bag_file_.save(file);
    path_ = file;
    stored_ = bag_file_.text();
}

std::shared_ptr<platform::AutomationObject> Document::SelectedControls(std::int32_t index) {
    if (index != 0) {
        throw platform::RuntimeError(platform::error_number::subscript_out_of_range,
                                     "Subscript out of range",
                                     "krvlist-designer");
    }
    return std::make_shared<automation::ControlObject>(widget_->list());
}

} // namespace krv::designer
