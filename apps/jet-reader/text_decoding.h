#pragma once

#include "bytes.h"

#include <string>
#include <string_view>

namespace krv::jet_reader {

/// A text of Jet 4 and later: UTF-16, lowest byte first, or, behind FF FE, single bytes of Latin-1
/// where a 0 changes to pairs and back. A lone surrogate becomes U+FFFD, an odd byte at the end is
/// dropped.
/// \param storage  takes the text, UTF-8
/// \return a view of `storage`, or of `data` when nothing has to be changed
std::string_view decode_text(Bytes data, std::string& storage);

} // namespace krv::jet_reader
