#pragma once

#include "column.h"
#include "jet_file.h"
#include "krv/standard/provider.h"

#include <memory>
#include <string>
#include <vector>

namespace krv::jet_reader {

/// The rows of a table, page by page. Values are decoded when they are asked for.
class TableReader final : public standard::ProviderCursor {
public:
    enum class Columns { all, none };

    /// \param columns  none: only the rows are counted
    /// \throws DataError -2147467259 when the table's definition makes no sense
    TableReader(JetFile& file, MdbCatalogEntry& entry, Columns columns = Columns::all);
    TableReader(const TableReader&) = delete;
    TableReader& operator=(const TableReader&) = delete;
    ~TableReader() override;

    /// \throws DataError -2147467259 for a row that makes no sense, and at the end when there were
    ///         fewer rows than the table's definition promises
    bool step() override;

    std::span<const standard::ColumnInfo> columns() const override { return infos_; }

    platform::ValueView value(std::size_t column) override;

    void release() noexcept override {}

private:
    struct Freer {
        void operator()(MdbTableDef* table) const noexcept { mdb_free_tabledef(table); }
    };

    void describe_columns();
    void make_page_current();
    bool next_page();
    bool take_row(unsigned row);
    void require_all_rows() const;

    Bytes field_bytes(std::size_t column) const;
    Bytes fixed_bytes(Bytes data, std::size_t size) const;
    Bytes calculated_payload(Bytes data) const;
    Bytes long_bytes(Bytes data);
    platform::ValueView decode(Bytes data, std::size_t column);
    platform::ValueView text_of(Bytes data, std::string& storage) const;
    platform::ValueView memo_of(Bytes data, std::string& storage) const;
    platform::ValueView extended_date(Bytes data, std::string& storage) const;

    JetFile& file_;
    std::unique_ptr<MdbTableDef, Freer> table_;
    std::vector<Column> columns_;
    std::vector<standard::ColumnInfo> infos_;
    std::vector<MdbField> fields_;
    std::vector<std::string> texts_; ///< per column, for a value that is not in the page as it is
    std::vector<unsigned char> long_value_; ///< of the value that was read last
    guint32 page_ = 0;
    std::size_t pages_seen_ = 0;
    int row_columns_ = 0; ///< fewer than the table's in a row that is older than its last columns
    unsigned next_row_ = 0;
    unsigned rows_on_page_ = 0;
    std::size_t rows_ = 0;
};

} // namespace krv::jet_reader
