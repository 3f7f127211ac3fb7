#include "long_value.h"

#include "errors.h"

namespace krv::jet_reader {

namespace {

constexpr std::uint32_t inline_flag = 0x80000000U;
constexpr std::uint32_t one_row_flag = 0x40000000U;
constexpr std::uint32_t length_mask = 0x3FFFFFFFU;
constexpr std::size_t head_size = 12;
constexpr std::size_t link_size = 4;

/// The row that three bytes of page and one of row number point to.
Bytes row_at(MdbHandle* handle, std::size_t page_size, std::uint32_t page_and_row) {
    void* page = nullptr;
    int start = 0;
    std::size_t size = 0;
    const bool failed =
        mdb_find_pg_row(handle, static_cast<int>(page_and_row), &page, &start, &size) != 0;
    if (failed || start < 0 || static_cast<std::size_t>(start) > page_size ||
        size > page_size - static_cast<std::size_t>(start)) {
        refuse_damaged("a long value is missing");
    }
    return {static_cast<const unsigned char*>(page) + start, size};
}

Bytes read_chain(MdbHandle* handle,
                 std::size_t page_size,
                 std::uint32_t first,
                 std::size_t length,
                 std::vector<unsigned char>& storage) {
    storage.clear();
    storage.reserve(length);
    for (std::uint32_t next = first; storage.size() < length;) {
        if (next == 0) {
            refuse_damaged("a long value is cut");
        }
        const Bytes row = row_at(handle, page_size, next);
        if (row.size() <= link_size) {
            refuse_damaged("a long value is cut"); // also ends a chain that leads round in a circle
        }
        next = load<std::uint32_t>(row.data());
        const Bytes part =
            row.subspan(link_size, std::min(row.size() - link_size, length - storage.size()));
        storage.insert(storage.end(), part.begin(), part.end());
    }
    return storage;
}

} // namespace

Bytes read_long_value(MdbHandle* handle,
                      std::size_t page_size,
                      Bytes field,
                      std::vector<unsigned char>& storage) {
    if (field.size() < head_size) {
        refuse_damaged("a long value has no head");
    }
    const auto flags = load<std::uint32_t>(field.data());
    const std::size_t length = flags & length_mask;
    if (length > largest_long_value) {
        refuse_damaged("a long value is too long");
    }
    if ((flags & inline_flag) != 0) {
        const Bytes rest = field.subspan(head_size);
        if (rest.size() < length) {
            refuse_damaged("a long value is cut");
        }
        return rest.first(length);
    }
    const auto place = load<std::uint32_t>(field.data() + 4);
    if ((flags & one_row_flag) == 0) {
        return read_chain(handle, page_size, place, length, storage);
    }
    const Bytes row = row_at(handle, page_size, place);
    if (row.size() < length) {
        refuse_damaged("a long value is cut");
    }
    return row.first(length);
}

} // namespace krv::jet_reader
