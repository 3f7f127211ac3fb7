#pragma once

#include "server/form_page.h"
#include "server/page_site.h"

#include <memory>

namespace krv::server {

/// The open property page and its designer. Goes when its owner lets go of it, which is allowed
/// inside anything that the page does.
struct HostedPage {
    HostedPage(const ControlTable& controls, Client& client)
        : site(controls, client) {}

    PageSite site;
    /// Made with the site, right after it.
    std::unique_ptr<FormPage> form_page;
};

} // namespace krv::server
