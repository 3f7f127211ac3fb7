#pragma once

#include "bytes.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace krv::jet_reader {

/// Kinds of file by the byte at 0x14 of the header.
enum class JetVersion : unsigned char { jet3 = 0, jet4 = 1, accdb_2007 = 2 };

/// What the first page says before anything else is read. The header is masked with the key stream
/// of RC4 for a fixed key; behind the mask lie the database's password, 20 characters that a
/// second mask of four bytes from the day of creation covers, and the key of the page encoding.
class FileHeader {
public:
    /// \param file  all of it
    /// \throws DataError -2147467259 when it is shorter than a page, or not a whole number of pages
    explicit FileHeader(Bytes file);

    std::size_t page_size() const noexcept { return page_size_; }

    bool is_jet3() const noexcept { return version_ == 0; }

    /// Encrypted by a key that is not in the file.
    bool is_encrypted() const noexcept { return is_encrypted_; }

    /// The password that opens the file, UTF-8 (Jet 3: the bytes of its code page); empty for none.
    const std::string& password() const noexcept { return password_; }

    /// \throws DataError -2147217843 for a wrong password, -2147467259 for an encrypted file
    void require_access(std::string_view password) const;

private:
    unsigned char version_;
    std::size_t page_size_;
    bool is_encrypted_ = false;
    std::string password_;
};

} // namespace krv::jet_reader
