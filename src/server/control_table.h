#pragma once

#include "server/hosted_control.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace krv::server {

/// The controls of the form by the client's ids.
class ControlTable {
public:
    /// \throws RuntimeError 457 when the id is taken
    void require_free(const std::string& id) const;

    /// The id is free.
    void add(const std::string& id, std::unique_ptr<HostedControl> control);

    /// \throws RpcError -32602 when there is none of this id
    HostedControl& find(std::string_view id) const;

    /// Takes the control off the form; its memory stays until `free_removed`.
    /// \throws RpcError -32602 when there is none of this id
    void remove(std::string_view id);

    /// Called while nothing is under way.
    void free_removed() { removed_.clear(); }

private:
    std::map<std::string, std::unique_ptr<HostedControl>, std::less<>> controls_;
    std::vector<std::unique_ptr<HostedControl>> removed_;
};

} // namespace krv::server
