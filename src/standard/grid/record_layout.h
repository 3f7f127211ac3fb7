#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace krv::standard {

/// How one row's texts lie in memory: a head, where each column's text ends, the texts.
///
/// There are places for the ends of so many columns, not all in use; columns behind those in use
/// are empty. Ends take 2 bytes; 4 when the texts need more than 64 KiB or there are more than
/// 32,767 columns. Records stand at any address.
struct RecordLayout {
    std::uint32_t places = 0;
    std::uint32_t used = 0;
    bool wide = false;

    /// Texts and ends of one row together.
    static constexpr std::size_t max_bytes = std::size_t{1} << 30;

    static RecordLayout
    for_texts(std::uint32_t places, std::uint32_t used, std::size_t texts_bytes) noexcept {
        return {places, used, places > max_narrow_places || texts_bytes > max_narrow_end};
    }

    static RecordLayout read(const char* record) noexcept {
        const auto places = load<std::uint16_t>(record);
        if (places != wide_mark) {
            return {places, load<std::uint16_t>(record + 2), false};
        }
        return {load<std::uint32_t>(record + 4), load<std::uint32_t>(record + 8), true};
    }

    void write(char* record) const noexcept {
        if (wide) {
            store(record, wide_mark);
            store(record + 4, places);
            store(record + 8, used);
        } else {
            store(record, static_cast<std::uint16_t>(places));
            store(record + 2, static_cast<std::uint16_t>(used));
        }
    }

    bool holds(std::size_t texts_bytes) const noexcept {
        return wide || texts_bytes <= max_narrow_end;
    }

    std::size_t texts_at() const noexcept {
        return wide ? 12 + std::size_t{places} * 4 : 4 + std::size_t{places} * 2;
    }

    std::size_t bytes(std::size_t texts_bytes) const noexcept { return texts_at() + texts_bytes; }

    std::size_t bytes_of(const char* record) const noexcept { return bytes(begin(record, used)); }

    /// Where a column's text begins, counted from the first text; for a column that is not in use:
    /// where the texts end.
    std::size_t begin(const char* record, std::uint32_t col) const noexcept {
        const std::uint32_t before = col < used ? col : used;
        if (before == 0) {
            return 0;
        }
        return wide ? load<std::uint32_t>(record + 8 + std::size_t{before} * 4)
                    : load<std::uint16_t>(record + 2 + std::size_t{before} * 2);
    }

    void set_end(char* record, std::uint32_t col, std::size_t end) const noexcept {
        if (wide) {
            store(record + 12 + std::size_t{col} * 4, static_cast<std::uint32_t>(end));
        } else {
            store(record + 4 + std::size_t{col} * 2, static_cast<std::uint16_t>(end));
        }
    }

    /// Moves the ends in use from `col` on; `difference` is modular, a text that shrinks wraps
    /// around.
    void move_ends(char* record, std::uint32_t col, std::size_t difference) const noexcept {
        for (; col < used; ++col) {
            set_end(record, col, begin(record, col + 1) + difference);
        }
    }

private:
    static constexpr std::uint16_t wide_mark = 0x8000;
    static constexpr std::uint32_t max_narrow_places = 0x7FFF;
    static constexpr std::size_t max_narrow_end = 0xFFFF;

    template <class Number>
    static Number load(const char* from) noexcept {
        Number number;
        std::memcpy(&number, from, sizeof number);
        return number;
    }

    template <class Number>
    static void store(char* to, Number number) noexcept {
        std::memcpy(to, &number, sizeof number);
    }
};

} // namespace krv::standard
