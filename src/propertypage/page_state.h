#pragma once

#include "krv/platform/life.h"
#include "krv/propertypage/property_page.h"

#include <cstdint>
#include <memory>

namespace krv::propertypage {

/// The state that all routines of one page share.
struct PageState {
    PageState(const PageEditors& its_editors, const PageSurroundings& surroundings)
        : editors(its_editors)
        , host(surroundings) {}

    /// Position of the selected tab's column in the arrays; -1 without tabs.
    std::int32_t selected_column() const { return editors.TabStrip1.SelectedIndex() - 1; }

    void mark_changed() { host.site.SetChanged(true); }

    PageEditors editors;
    PageSurroundings host;

    PageColumns columns;

    std::shared_ptr<platform::Connection> pageConnection;
    std::shared_ptr<platform::Recordset> pageRecordset;
    bool pageDataOpen = false;

    /// Selections that were read, or begun to be read.
    std::uint32_t loads = 0;

    /// Refused, and on its way to get the focus back; null for none.
    const platform::Editor* takes_focus_back = nullptr;

    platform::LifeToken life;
};

/// Kept on the stack by a routine across calls that may run a host's code: what it works on ends
/// with the page, and when another selection is read.
class SameSelection {
public:
    explicit SameSelection(const PageState& page)
        : page_(&page)
        , watch_(page.life)
        , loads_(page.loads) {}

    bool holds() const { return !watch_.ended() && page_->loads == loads_; }

private:
    const PageState* page_;
    platform::LifeWatch watch_;
    std::uint32_t loads_;
};

} // namespace krv::propertypage
