#pragma once

#include "server/client.h"
#include "server/control_table.h"
#include "server/form.h"
#include "server/message_boxes.h"
#include "server/object_table.h"
#include "server/page_hosted.h"

#include "krv/platform/data_access.h"
#include "krv/standard/value_formatter.h"

#include <functional>
#include <memory>
#include <utility>

namespace krv::server {

/// What the requests work on. The form outlives it.
struct ServerState {
    ServerState(Form& its_form,
                Client& its_client,
                std::shared_ptr<platform::DataAccess> its_data,
                std::shared_ptr<const standard::ValueFormatter> its_formatter)
        : form(its_form)
        , client(its_client)
        , data(std::move(its_data))
        , formatter(std::move(its_formatter))
        , message_boxes(its_client) {}

    Form& form;
    Client& client;
    std::shared_ptr<platform::DataAccess> data;
    /// Of everything that is made from now on.
    std::shared_ptr<const standard::ValueFormatter> formatter;
    ObjectTable objects;
    MessageBoxes message_boxes;
    ControlTable controls;
    /// Null while no page is open.
    std::unique_ptr<HostedPage> page;
    /// Ends the session once the request under way is answered.
    std::function<void()> end;
};

} // namespace krv::server
