#pragma once

#include "krv/platform/data_access.h"
#include "krv/platform/formatter.h"
#include "krv/platform/property_page_site.h"
#include "krv/standard/bag_file.h"

#include <QString>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace krv {

class KarvoList;

namespace qt {

class KarvoListWidget;

} // namespace qt

namespace designer {

/// What every document of the program works with.
struct Surroundings {
    std::shared_ptr<platform::DataAccess> data_access;
    std::shared_ptr<const platform::Formatter> formatter;
};

/// The providers of this program and the regional settings of the system.
Surroundings make_surroundings();

/// A list that is being set up, and the file of its settings. As a designer it has the one control
/// selected.
class Document final : public platform::PropertyPageSite {
public:
    /// A new control without a file. Like one from a file it gives the program its own title.
    explicit Document(const Surroundings& surroundings);
    /// \throws what `BagFile::load` and `KarvoList::ReadProperties` raise
    Document(const Surroundings& surroundings, const std::filesystem::path& file);
    ~Document() override;

    /// Empty while there is none.
    const std::filesystem::path& file() const noexcept { return path_; }

    qt::KarvoListWidget& widget() noexcept { return *widget_; }

    KarvoList& list() noexcept;

    /// The file as it would be saved now.
    std::string text() const;

    /// Whether saving would change the file.
    bool is_modified() const { return text() != stored_; }

    /// \throws RuntimeError 75 when the file cannot be written; the old one is as it was
    void save(const std::filesystem::path& file);

    std::int32_t SelectedControlsCount() const override { return 1; }

    std::shared_ptr<platform::AutomationObject> SelectedControls(std::int32_t index) override;

    bool Changed() const override { return changed_; }

    void SetChanged(bool changed) override { changed_ = changed; }

private:
    std::filesystem::path path_;
    standard::BagFile bag_file_;
    std::unique_ptr<qt::KarvoListWidget> widget_; ///< never shown
    QString title_; ///< of the program, as the control set it: one of the settings
    std::string stored_;
    bool changed_ = false;
};

} // namespace designer
} // namespace krv
