#pragma once

#include "krv/standard/value_formatter.h"

namespace krv::jet_reader {

/// Jet's SQL reads and writes dates and numbers in the American way, whatever the machine's region.
const standard::ValueFormatter& region_of_sql();

} // namespace krv::jet_reader
