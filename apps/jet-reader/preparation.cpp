#include "preparation.h"

#include "code_page.h"

#include <ctime>

#include <sqlite3.h>

namespace krv::jet_reader {

void prepare_libraries() {
    load_code_pages();
    tzset();
    const std::time_t now = std::time(nullptr);
    static_cast<void>(std::localtime(&now));
    sqlite3_initialize();
    unsigned char random = 0;
    sqlite3_randomness(1, &random);
}

} // namespace krv::jet_reader
