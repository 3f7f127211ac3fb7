#pragma once

#include <cstddef>
#include <cstdint>

// What the library and its reader say to each other over a pair of sockets.
//
// A frame is a head and its payload; the head is the payload's size (32 bits), the number of the
// request that it makes or answers (32 bits) and a kind (8 bits). Both ends run on one machine, so
// numbers are in its own byte order. Texts are a size (32 bits) and UTF-8.
//
// A request gets any number of `progress` answers and then one other.

namespace krv::providers::jet::protocol {

inline constexpr std::uint32_t version = 1;
inline constexpr std::size_t head_size = 9;

/// A frame beyond this is refused by either end.
inline constexpr std::uint32_t largest_payload = 192U * 1024 * 1024;

/// A block of rows is closed as soon as it is at least this large.
inline constexpr std::size_t block_size = 128U * 1024;

/// Rows are asked for by this many at most.
inline constexpr std::uint32_t largest_row_count = 100'000;

enum class Request : std::uint8_t {
    open = 1,       ///< text: the password, or empty
    open_table = 2, ///< text: name as in the catalog
    open_query = 3, ///< text: a statement
    next_rows = 4,  ///< u32: cursor
    close = 5       ///< u32: cursor
};

enum class Answer : std::uint8_t {
    opened = 1,  ///< u32 version, u32 count, then the tables' names as texts
    columns = 2, ///< u32 cursor, u32 count, then per column: i16 type, i32 size, text name
    rows = 3,    ///< u8 whether they are the last, u32 count, then the rows' values
    closed = 4,  ///< nothing
    error = 5,   ///< i32 number, i32 native code, text
    progress = 6 ///< nothing: the work goes on
};

/// Descriptors of the reader: requests and answers on the standard input, what it has to say on the
/// standard error output, and the database file.
inline constexpr int channel_descriptor = 0;
inline constexpr int complaints_descriptor = 2;
inline constexpr int file_descriptor = 3;

// A value is a byte, the number of its `platform::ValueKind`, and then: boolean and byte 8 bits,
// integer 16, long_integer 32, long_long, double_float, date and currency 64, single 32; decimal 64
// bits low, 32 bits high, 8 bits scale, 8 bits sign; text and bytes as above; null nothing.

} // namespace krv::providers::jet::protocol
