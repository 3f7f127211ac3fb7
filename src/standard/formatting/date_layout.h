#pragma once

#include "standard/formatting/calendar.h"
#include "standard/formatting/date_tokens.h"
#include "standard/formatting/digit_pairs.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace krv::standard {

/// A date pattern of a fixed width, made of numbers alone: its text with gaps for pairs of digits.
/// Writes "dd/mm/yyyy" at the cost of a few copies.
class DateLayout {
public:
    /// False when there is no room left.
    bool add_text(std::string_view text) {
        if (text.size() > longest - length_) {
            return false;
        }
        if (!text.empty()) {
            std::memcpy(text_.data() + length_, text.data(), text.size());
        }
        length_ += static_cast<std::uint8_t>(text.size());
        return true;
    }

    /// False also for a field of another kind.
    bool add_field(DateField field);

    std::size_t length() const { return length_; }

    /// \param out  room for `length` bytes
    void write(const CalendarTime& time, char* out) const {
        const auto year = static_cast<std::uint32_t>(time.year);
        copy_text(out);
        write_pairs({date_pairs_.data(), date_count_},
                    static_cast<std::uint32_t>(time.day) << day |
                        static_cast<std::uint32_t>(time.month) << month | year / 100 << century |
                        year % 100 << year_of_century,
                    out);
        if (time_count_ > 0) {
            write_pairs({time_pairs_.data(), time_count_},
                        static_cast<std::uint32_t>(time.hour()) << hour |
                            static_cast<std::uint32_t>(time.minute()) << minute |
                            static_cast<std::uint32_t>(time.second()) << second,
                        out);
        }
    }

private:
    static constexpr std::size_t longest = 32;

    /// A number below 100 by its place, in bits, among the packed ones: a register holds them all.
    enum Place : std::uint8_t {
        day = 0,
        month = 8,
        century = 16,
        year_of_century = 24,
        hour = 0,
        minute = 8,
        second = 16
    };

    struct Pair {
        Place place;
        std::uint8_t offset;
    };

    using Pairs = std::array<Pair, longest / 2>;

    bool add_pair(Place place, Pairs& pairs, std::uint8_t& count);

    static void write_pairs(std::span<const Pair> pairs, std::uint32_t packed, char* out) {
        for (const Pair& pair : pairs) {
            write_pair(packed >> pair.place & 0xFFU, out + pair.offset);
        }
    }

    /// Without a call for the usual lengths of a date.
    void copy_text(char* out) const {
        constexpr std::size_t word = 8;
        if (length_ >= word && length_ <= 2 * word) {
            std::memcpy(out, text_.data(), word);
            std::memcpy(out + length_ - word, text_.data() + length_ - word, word);
        } else {
            std::memcpy(out, text_.data(), length_);
        }
    }

    std::array<char, longest> text_{};
    Pairs date_pairs_{};
    Pairs time_pairs_{};
    std::uint8_t length_ = 0;
    std::uint8_t date_count_ = 0;
    std::uint8_t time_count_ = 0;
};

} // namespace krv::standard
