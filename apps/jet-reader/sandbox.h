#pragma once

#include <cstddef>

namespace krv::jet_reader {

/// Closes every descriptor but the reader's own.
void close_what_is_not_ours();

/// From here on this process can compute, take a bounded amount of memory, read and answer requests,
/// complain, and end. Opening a file, connecting, starting a process or thread and everything else
/// ends it at once.
/// \param mapped_size  bytes of memory that are taken already by the mapped file
/// \throws std::system_error when the system does not let itself be limited; nothing may be read then
void enter_sandbox(std::size_t mapped_size);

} // namespace krv::jet_reader
