#pragma once

#include "bytes.h"

#include <vector>

#include <glib.h>
#include <mdbtools.h>

namespace krv::jet_reader {

/// The largest memo or OLE value that is read.
inline constexpr std::size_t largest_long_value = 64U * 1024 * 1024;

/// A memo's or OLE object's bytes, from the 12 bytes or more that stand for it in the row: the value
/// itself behind them, or one row of another page, or a chain of such rows.
/// \param storage  takes the bytes of a chain
/// \return a view of the row, of the library's second page, or of `storage`: valid until the next
///         long value is read
/// \throws DataError -2147467259 for what does not fit together or is too large
Bytes read_long_value(MdbHandle* handle,
                      std::size_t page_size,
                      Bytes field,
                      std::vector<unsigned char>& storage);

} // namespace krv::jet_reader
