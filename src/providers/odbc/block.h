#pragma once

#include "krv/standard/provider.h"
#include "providers/odbc/column_type.h"
#include "providers/odbc/session.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <future>
#include <span>
#include <vector>

namespace krv::providers::odbc {

/// How a column's values come from the driver.
enum class Form { bit, whole, unsigned_whole, single, double_float, text, bytes };

/// A value as the driver wrote it, valid until the next fetch.
struct RawCell {
    const std::byte* data = nullptr; ///< null for the missing value
    std::size_t size = 0;            ///< bytes
};

/// Rows of an executed statement, fetched many at a time where the driver can read long values out
/// of such a block, else one by one. While one block is being read, a thread fetches the next.
class Block {
public:
    /// Describes and binds the columns.
    /// \param statement  executed; outlives this, and is used by nobody else meanwhile
    Block(const StatementHandle& statement, const DriverTraits& traits);
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    /// Goes to the next row; false behind the last one.
    bool step() { return ++row_ < row_count_ || go_on(); }

    std::span<const standard::ColumnInfo> columns() const { return infos_; }

    Form form(std::size_t column) const { return columns_[column].form; }

    /// The current row's value.
    RawCell cell(std::size_t column) {
        const Column& asked = columns_[column];
        if (asked.whole_row == serial_ + row_) {
            return asked.whole_cell();
        }
        const Place& place = rows_[current_].places[column];
        // Another core has written it.
        __builtin_prefetch(place.data.data() + (row_ + 1) * asked.width);
        const SQLLEN length = place.lengths[row_];
        if (length == SQL_NULL_DATA) {
            return {};
        }
        return asked.holds(length) ? RawCell{place.data.data() + row_ * asked.width,
                                             static_cast<std::size_t>(length)}
                                   : long_cell(column);
    }

private:
    struct Column {
        Form form = Form::text;
        SQLSMALLINT c_type = 0;
        std::size_t width = 0; ///< bytes of a value's place
        std::size_t room = 0;  ///< of them for the value
        bool is_bound = true;  ///< else its values are asked for one by one
        // A value that was read in pieces, and the row it belongs to.
        std::vector<std::byte> whole;
        std::uint64_t whole_row = 0;
        bool is_null = false;

        bool holds(SQLLEN length) const {
            return length >= 0 && static_cast<std::size_t>(length) <= room;
        }

        RawCell whole_cell() const {
            static constexpr std::byte nothing{};
            if (is_null) {
                return {};
            }
            return whole.empty() ? RawCell{&nothing, 0} : RawCell{whole.data(), whole.size()};
        }
    };

    /// Where the driver writes a column's values.
    struct Place {
        std::vector<std::byte> data;
        std::vector<SQLLEN> lengths;
    };

    struct Rows {
        std::vector<Place> places; ///< by column
        std::vector<SQLUSMALLINT> states;
        SQLULEN fetched = 0; ///< as the driver says
        std::size_t count = 0;
        bool has_long = false; ///< values that did not find room
    };

    enum class Mode { blocks, rows, unbound };

    void describe(const DriverTraits& traits);
    bool fetches_many(const DriverTraits& traits) const;
    void make_room(std::size_t most_rows);
    void bind(Rows& rows);
    bool go_on();
    void fetch(Rows& rows);
    void fetch_ahead();
    bool has_long_values(const Rows& rows) const;
    void require_no_failed_row(const Rows& rows) const;
    void read_unbound_row();
    void read_whole(std::size_t column);
    RawCell long_cell(std::size_t column);

    const StatementHandle& statement_;
    Mode mode_;
    std::vector<standard::ColumnInfo> infos_;
    std::vector<Column> columns_;
    std::size_t capacity_ = 1; ///< rows of a block
    std::array<Rows, 2> rows_; ///< one is read, one is fetched
    std::size_t current_ = 0;  ///< of these, the one that is read
    const Rows* bound_ = nullptr;
    std::size_t row_ = 0;          ///< in the block
    std::size_t row_count_ = 0;    ///< of the block
    std::uint64_t serial_ = 1;     ///< number of the block's first row
    std::future<void> ahead_ = {}; ///< the fetching of the next block; the last member, so that
                                   ///< its end is waited for before anything else goes
};

} // namespace krv::providers::odbc
