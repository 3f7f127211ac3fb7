#pragma once

#include "bytes.h"
#include "file_header.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <glib.h>
#include <mdbtools.h>

namespace krv::jet_reader {

/// The bytes of an open file, mapped to be read.
class MappedFile {
public:
    /// \throws DataError -2147467259
    explicit MappedFile(int descriptor);
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    ~MappedFile();

    Bytes bytes() const noexcept { return {static_cast<const unsigned char*>(data_), size_}; }

private:
    void* data_ = nullptr;
    std::size_t size_ = 0;
};

/// An open database with its catalog. One page of it is current at a time.
class JetFile {
public:
    /// \throws DataError -2147467259 for a file that is damaged, not whole or encrypted,
    ///         -2147217843 for a wrong password
    JetFile(Bytes bytes, std::string_view password);
    JetFile(const JetFile&) = delete;
    JetFile& operator=(const JetFile&) = delete;

    /// Tables and linked tables of the user, in the catalog's order.
    const std::vector<std::string>& tables() const noexcept { return tables_; }

    /// The entry of a table with data of its own.
    /// \throws DataError -2147217865 for a name that is not there and for a linked table
    MdbCatalogEntry& table(const std::string& name) const;

    /// The table's name by the rules of the provider: as it is, else without letter case.
    std::string found_name(const std::string& name) const;

    MdbHandle* handle() const noexcept { return handle_.get(); }

    bool is_jet3() const noexcept { return header_.is_jet3(); }

    std::size_t page_size() const noexcept { return header_.page_size(); }

    std::size_t page_count() const noexcept { return page_count_; }

    /// Who made the current page current; null for nobody who still wants it.
    const void* page_user = nullptr;

private:
    struct Closer {
        void operator()(MdbHandle* handle) const noexcept { mdb_close(handle); }
    };

    void read_catalog();
    void require_whole_catalog(MdbCatalogEntry* own_entry);

    FileHeader header_;
    std::size_t page_count_;
    std::unique_ptr<MdbHandle, Closer> handle_;
    std::vector<std::string> tables_;
    std::vector<MdbCatalogEntry*> entries_; ///< of `tables_`, the library's
};

} // namespace krv::jet_reader
