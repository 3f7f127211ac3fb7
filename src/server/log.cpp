#include "server/log.h"

#include <iostream>

namespace krv::server {

void log(std::string_view text) {
    std::cerr << "krvlist-server: " << text << '\n';
}

} // namespace krv::server
