#include "regional.h"

namespace krv::jet_reader {

const standard::ValueFormatter& region_of_sql() {
    static const standard::ValueFormatter formatter(standard::regional_settings("en-US"));
    return formatter;
}

} // namespace krv::jet_reader
