#pragma once

#include "krv/platform/value.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace krv::jet_sample {

/// Type numbers of the format.
enum class JetType : std::uint8_t {
    boolean = 1,
    byte = 2,
    integer = 3,
    long_integer = 4,
    currency = 5,
    single = 6,
    double_float = 7,
    date = 8,
    binary = 9,
    text = 10,
    ole = 11,
    memo = 12,
    guid = 15,
    numeric = 16
};

struct JetColumn {
    std::string name;
    JetType type;
    int size = 0; ///< characters of a text, bytes of a binary, digits of a numeric
    int scale = 0;
    bool is_counter = false;
};

using JetRow = std::vector<platform::Value>;

/// Writes small databases of Jet 4: valid ones, to read them again. They hold what a reader needs
/// (header, catalog, definitions, maps, data, long values) and neither indexes nor rights, so the
/// program that the format comes from would not take them.
class JetWriter {
public:
    JetWriter();

    /// Adds a table. Values are of the kinds of their columns: text for `text`, `memo` and `guid`
    /// (`{XXXXXXXX-...}`), whole numbers, currency, decimal with the column's scale, date, bytes.
    /// \param row_at  called once for each row, in their order
    /// \throws std::length_error for a row that does not fit a page
    void add_table(const std::string& name,
                   const std::vector<JetColumn>& columns,
                   std::size_t row_count,
                   const std::function<JetRow(std::size_t)>& row_at);

    /// The database asks for a password; up to 20 characters of ASCII.
    void set_password(std::string password) { password_ = std::move(password); }

    /// The file. Nothing is added afterwards.
    std::string file();

private:
    using Bytes = std::string;
    using Page = std::uint32_t;

    struct Table {
        std::string name;
        Page definition;
    };

    Page new_page();
    int add_row(Page page, std::string_view owner, std::string_view row);
    Bytes long_value(std::string_view data);
    Bytes chain(std::string_view data);
    Bytes encoded(const JetColumn& column, platform::ValueView value);
    Bytes row_bytes(const std::vector<JetColumn>& columns, const JetRow& row);
    Bytes definition(const std::vector<JetColumn>& columns,
                     std::size_t row_count,
                     std::uint32_t map,
                     char kind) const;
    void store(Page definition_page,
               const std::vector<JetColumn>& columns,
               std::size_t row_count,
               const std::function<JetRow(std::size_t)>& row_at,
               char kind);
    std::uint32_t write_map(Page map_page, Page owner, const std::vector<Page>& pages);
    Bytes header() const;

    std::vector<Bytes> pages_;
    Page long_values_ = 0; ///< page that short ones are added to; 0 for none yet
    std::vector<Table> tables_;
    std::string password_;
};

} // namespace krv::jet_sample
