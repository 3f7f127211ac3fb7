#include "jet_file.h"

#include "errors.h"
#include "krv/standard/data_error.h"
#include "standard/letter_case.h"
#include "standard/utf8.h"
#include "table_reader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <sys/mman.h>
#include <sys/stat.h>

namespace krv::jet_reader {

namespace {

namespace number = standard::data_error_number;

constexpr unsigned system_flags = 0x80000002U;
constexpr int linked_by_odbc = 4;
constexpr std::string_view catalog_name = "MSysObjects";

bool is_linked(const MdbCatalogEntry& entry) {
    return entry.object_type == MDB_LINKED_TABLE || entry.object_type == linked_by_odbc;
}

bool is_for_the_user(const MdbCatalogEntry& entry) {
    const bool is_table = entry.object_type == MDB_TABLE || is_linked(entry);
    return is_table && (static_cast<unsigned>(entry.flags) & system_flags) == 0 &&
           !std::string_view(entry.object_name).starts_with("MSys");
}

} // namespace

MappedFile::MappedFile(int descriptor) {
    struct stat status {};

    if (fstat(descriptor, &status) == 0 && status.st_size > 0) {
        size_ = static_cast<std::size_t>(status.st_size);
        data_ = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, descriptor, 0);
    }
    if (data_ == nullptr || data_ == MAP_FAILED) {
        throw standard::DataError(number::unspecified,
                                  std::string("The database file cannot be read: ") +
                                      std::strerror(errno) + ".",
                                  layer);
    }
}

MappedFile::~MappedFile() {
    munmap(data_, size_);
}

JetFile::JetFile(Bytes bytes, std::string_view password)
    : header_(bytes)
    , page_count_(bytes.size() / header_.page_size()) {
    header_.require_access(password);
    // The library does not write through what it opens without the flag for that.
    handle_.reset(
        mdb_open_buffer(const_cast<unsigned char*>(bytes.data()), bytes.size(), MDB_NOFLAGS));
    if (!handle_) {
        refuse_damaged("its header");
    }
    read_catalog();
}

void JetFile::read_catalog() {
    const GPtrArray* const catalog = mdb_read_catalog(handle_.get(), MDB_ANY);
    if (catalog == nullptr) {
        refuse_damaged("its catalog");
    }
    MdbCatalogEntry* own_entry = nullptr;
    for (guint i = 0; i < catalog->len; ++i) {
        auto* const entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(catalog, i));
        if (catalog_name == entry->object_name) {
            own_entry = entry;
        }
        if (is_for_the_user(*entry)) {
            std::string storage;
            tables_.emplace_back(standard::repaired_utf8(entry->object_name, storage));
            entries_.push_back(entry);
        }
    }
    require_whole_catalog(own_entry);
}

/// A file that was cut loses its catalog's last pages first, and with them whole tables.
void JetFile::require_whole_catalog(MdbCatalogEntry* own_entry) {
    if (own_entry == nullptr) {
        refuse_damaged("its catalog does not list itself");
    }
    TableReader reader(*this, *own_entry, TableReader::Columns::none);
    while (reader.step()) {
    }
}

MdbCatalogEntry& JetFile::table(const std::string& name) const {
    const auto found = std::find(tables_.begin(), tables_.end(), name);
    if (found == tables_.end()) {
        refuse_unknown_table(name);
    }
    MdbCatalogEntry& entry = *entries_[static_cast<std::size_t>(found - tables_.begin())];
    if (is_linked(entry)) {
        throw standard::DataError(number::no_such_table,
                                  "The table \"" + name +
                                      "\" is linked from another database; it is not read.",
                                  layer);
    }
    return entry;
}

std::string JetFile::found_name(const std::string& name) const {
    if (std::find(tables_.begin(), tables_.end(), name) != tables_.end()) {
        return name;
    }
    const auto is_similar = [&](const std::string& table) {
        return standard::equal_in_any_case(table, name);
    };
    const auto found = std::find_if(tables_.begin(), tables_.end(), is_similar);
    if (found == tables_.end() || std::any_of(found + 1, tables_.end(), is_similar)) {
        refuse_unknown_table(name);
    }
    return *found;
}

} // namespace krv::jet_reader
