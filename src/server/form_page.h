#pragma once

#include "krv/platform/dialog_controls.h"
#include "krv/platform/property_page_site.h"
#include "krv/propertypage/property_page.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace krv::server {

/// The property page as a form shows it, with its editors. Goes when its owner lets go of it, which is
/// allowed inside anything that the page does.
class FormPage {
public:
    virtual ~FormPage() = default;

    virtual pKrvList& page() = 0;
    /// The editor with this name, spelled exactly; null when there is none.
    virtual platform::Editor* editor(std::string_view name) = 0;
    virtual bool has_focus(const platform::Editor& editor) const = 0;

    // The developer's acts. Each gives the message loop one turn before it returns and lets out the
    // first error of a handler. Nothing else moves the focus on the page.

    /// The focus goes to the editor; the one that had it loses it first.
    /// \throws RuntimeError 5 when the editor cannot take the focus
    virtual void enter(platform::Editor& editor) = 0;
    /// The editor loses the focus, to none; nothing when it does not have it.
    virtual void leave(platform::Editor& editor) = 0;
    /// Replaces the editor's text as by typing: one change.
    virtual void text(platform::Editor& editor, std::string_view text) = 0;
    /// Clicks a check box, a position of a list (from 0) or a tab (from 1). Ignored on a disabled
    /// editor.
    virtual void click(platform::Editor& editor, std::optional<std::int32_t> index) = 0;
    virtual void double_click(platform::Editor& editor) = 0;
};

/// What the file dialog was set up with.
struct FileQuestion {
    std::string title;
    std::string filter;
    std::string folder;
};

/// What a page needs that its form does not have.
struct PageSupplies {
    /// The designer: selection and changed flag. Outlives the page.
    platform::PropertyPageSite& site;
    std::shared_ptr<platform::DataAccess> data_access;
    std::shared_ptr<const platform::Formatter> formatter;
    /// The chosen file; none when the dialog is cancelled.
    std::function<std::optional<std::string>(const FileQuestion&)> ask_file;
};

} // namespace krv::server
