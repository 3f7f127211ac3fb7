#pragma once

#include <cstdint>

namespace krv {

/// Which record a column's value belongs to: a tag for the host, not used by the control.
enum krvListRecords : std::int32_t {
    krvListRecord = 0, ///< the list's own record
    krvRec1 = 1,       ///< first related record
    krvRec2 = 2        ///< second related record
};

/// Column alignment, as the grids number it.
enum krvAlignment : std::int32_t { krvauto = 0, krvleft = 1, krvcenter = 4, krvright = 7 };

} // namespace krv
