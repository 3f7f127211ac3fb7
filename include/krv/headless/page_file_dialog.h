#pragma once

#include "krv/platform/dialog_controls.h"
#include "krv/platform/life.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace krv::headless {

/// A file dialog as a person sees it.
struct ShownFileDialog {
    std::string title;
    std::string filter;
    std::string folder;

    friend bool operator==(const ShownFileDialog&, const ShownFileDialog&) = default;
};

/// A file dialog without a screen: it asks a callback for the file.
class HeadlessFileDialog final : public platform::FileDialog {
public:
    /// Gives the chosen file, none for a cancelled dialog; may destroy the dialog, or throw.
    using Ask = std::function<std::optional<std::string>(const ShownFileDialog&)>;

    void SetDialogTitle(std::string_view title) override { shown_.title = title; }

    void SetFilter(std::string_view filter) override { shown_.filter = filter; }

    void SetInitDir(std::string_view folder) override { shown_.folder = folder; }

    /// \throws RuntimeError 32755 when it is cancelled, and when nobody is there to be asked
    void ShowOpen() override;

    std::string FileName() const override { return file_name_; }

    /// Empty for none.
    void set_ask(Ask ask) { ask_ = std::move(ask); }

private:
    ShownFileDialog shown_;
    std::string file_name_;
    Ask ask_;
    platform::LifeToken life_;
};

} // namespace krv::headless
