#pragma once

#include "companions/table_columns.h"
#include "krv/companions/record_writer.h"
#include "krv/platform/value.h"

#include <string>
#include <string_view>
#include <vector>

namespace krv::companions {

/// A statement, or a piece of one, with the values of its parameters in order.
struct Statement {
    std::string sql;
    std::vector<platform::Value> parameters;
};

/// A field and the value that it has or gets.
struct FieldValue {
    const TableColumn* column = nullptr;
    platform::Value value;
};

using FieldValues = std::vector<FieldValue>;

/// Writes the statements on one table. Names are quoted, values are parameters.
class RecordStatements {
public:
    explicit RecordStatements(const RecordWriterSettings& settings);

    /// The fields of the columns, of the records that have these key values.
    Statement select(const TableColumns& columns, const FieldValues& key) const;

    /// The fields of the columns, of no record.
    Statement select_nothing(const TableColumns& columns) const;

    /// \param given  columns whose values the statement yields; none for a plain insert
    Statement insert(const FieldValues& values, const std::vector<const TableColumn*>& given) const;

    Statement update(const FieldValues& values, const FieldValues& key) const;
    Statement remove(const FieldValues& key) const;

private:
    std::string name(std::string_view plain) const;
    std::string fields(const TableColumns& columns) const;
    void add_where(Statement& statement, const FieldValues& key) const;

    NameQuotes quotes_;
    std::string lock_clause_;
    std::string table_; // quoted
};

} // namespace krv::companions
