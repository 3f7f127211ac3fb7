#pragma once

namespace krv::jet_reader {

/// Has the libraries do what they do at their first use, and would need files for: code pages, the
/// time zone, random numbers.
void prepare_libraries();

} // namespace krv::jet_reader
