#include "server/methods.h"
#include "server/not_yet.h"

namespace krv::server {

namespace {

Json not_yet(ServerState& /*state*/, const Params& /*params*/) {
    fail_not_yet();
}

constexpr Method methods[] = {{"page.open", not_yet},
                              {"page.part", not_yet},
                              {"page.state", not_yet},
                              {"page.enter", not_yet},
                              {"page.leave", not_yet},
                              {"page.text", not_yet},
                              {"page.click", not_yet},
                              {"page.dblclick", not_yet},
                              {"page.select", not_yet},
                              {"page.apply", not_yet}};

} // namespace

std::span<const Method> page_methods() {
    return methods;
}

} // namespace krv::server
