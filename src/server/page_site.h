#pragma once

#include "server/client.h"
#include "server/control_table.h"

#include "krv/platform/property_page_site.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace krv::server {

/// The designer of a property page: its selection is the client's. Everything referred to outlives
/// it.
class PageSite final : public platform::PropertyPageSite {
public:
    PageSite(const ControlTable& controls, Client& client)
        : controls_(controls)
        , client_(client) {}

    /// \throws RpcError -32602 when there is no control of an id; the selection stays
    void select(const std::vector<std::string>& ids);

    std::int32_t SelectedControlsCount() const override {
        return static_cast<std::int32_t>(selection_.size());
    }

    /// \throws RuntimeError 91 also when another control has the id by now
    std::shared_ptr<platform::AutomationObject> SelectedControls(std::int32_t index) override;

    bool Changed() const override { return changed_; }

    /// Tells the client whenever the page marks itself as changed.
    void SetChanged(bool changed) override;

private:
    struct Selected {
        std::string id;
        std::weak_ptr<const void> watch;
    };

    const ControlTable& controls_;
    Client& client_;
    std::vector<Selected> selection_;
    bool changed_ = false;
};

} // namespace krv::server
