#pragma once

#include "bytes.h"

#include <string>
#include <string_view>

#include <iconv.h>

namespace krv::jet_reader {

/// A text of Jet 3, in the file's code page. What that does not define becomes U+FFFD.
/// \param converter  to UTF-8
/// \return a view of `storage`, or of `data` when it is ASCII
std::string_view decode_code_page(iconv_t converter, Bytes data, std::string& storage);

/// Has the system load what it needs for the code pages of Jet 3, so that nothing need be opened
/// later on. It stays loaded.
void load_code_pages();

} // namespace krv::jet_reader
