#pragma once

#include <string>

namespace krv::jet_sample {

/// The sample: a Jet 4 database with the tables "Articoli" and "Order Lines" of a shop, "Tipi" with
/// every type at its limits, and "Vuota" without rows. The same every time.
std::string sample_file();

} // namespace krv::jet_sample
