#include "server/server.h"

#include "server/recorded_data.h"
#include "server/rpc_error.h"

#include <utility>

namespace krv::server {

Server::Server(std::unique_ptr<Form> form,
               std::shared_ptr<platform::DataAccess> data,
               standard::RegionalSettings region,
               Channel& channel)
    : form_(std::move(form))
    , session_(
          channel,
          [this](const std::string& name, const Json& params) { return carry_out(name, params); })
    , state_(*form_,
             session_,
             std::make_shared<RecordedData>(std::move(data)),
             std::make_shared<const standard::ValueFormatter>(std::move(region))) {
    for (const auto methods : {session_methods(),
                               control_methods(),
                               member_methods(),
                               host_methods(),
                               input_methods(),
                               part_methods(),
                               data_methods(),
                               value_methods(),
                               page_methods()}) {
        add(methods);
    }
    state_.end = [this] { session_.end(); };
    form_->set_ask([this](std::string_view text, platform::MessageButtons buttons) {
        return state_.message_boxes.answer(text, buttons, form_->application().Title());
    });
}

void Server::add(std::span<const Method> methods) {
    for (const Method& method : methods) {
        methods_.emplace(method.name, method.run);
    }
}

Json Server::carry_out(const std::string& name, const Json& params) {
    const auto method = methods_.find(name);
    if (method == methods_.end()) {
        throw RpcError(RpcError::unknown_method, "no method " + name);
    }
    if (session_.under_way() == 1) {
        state_.controls.free_removed();
    }
    return method->second(state_, Params(params));
}

} // namespace krv::server
