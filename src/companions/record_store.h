#pragma once

#include "companions/record_statements.h"
#include "companions/table_columns.h"
#include "krv/companions/record_writer.h"
#include "krv/platform/data_access.h"
#include "krv/platform/formatter.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace krv::companions {

/// The table that the rows of a list belong to.
///
/// Each member is one transaction: when it throws, nothing is written, and the connection is opened
/// anew by the next one. Errors are `Refusal` for what the store itself refuses, `RuntimeError` for
/// what the data layer does.
class RecordStore {
public:
    RecordStore(platform::DataAccess& data_access,
                const platform::Formatter& formatter,
                const RecordWriterSettings& settings);
    ~RecordStore();
    RecordStore(const RecordStore&) = delete;
    RecordStore& operator=(const RecordStore&) = delete;

    /// Opens the connection unless it is open on this string.
    void connect(std::string_view connection_string);
    void disconnect() noexcept;

    /// Asks the table for the types of columns that have none.
    void learn_types(TableColumns& columns);

    // The texts of the record as they are shown afterwards come back, in the order of the columns.

    /// \param before, after  the row as the list has it, and as it shall be
    RowTexts update(const TableColumns& columns, const RowTexts& before, const RowTexts& after);

    /// Blank keys are given by the database.
    RowTexts insert(const TableColumns& columns, const RowTexts& row);

    /// \return whether there was a record to delete
    bool remove(const TableColumns& columns, const RowTexts& before);

    /// Throws what keeps the row's record from being found.
    FieldValues key_of(const TableColumns& columns, const RowTexts& row) const;

private:
    void transact(const std::function<void()>& work);
    platform::ExecuteResult execute(const Statement& statement);
    std::optional<RowTexts> read(const TableColumns& columns, const FieldValues& key);
    FieldValues
    changes(const TableColumns& columns, const RowTexts& before, const RowTexts& after) const;
    void drop_same_values(FieldValues& values,
                          const TableColumns& columns,
                          const RowTexts& record) const;
    FieldValues values_of_new(const TableColumns& columns, const RowTexts& row) const;
    void take_given_key(const platform::ExecuteResult& result,
                        const std::vector<const TableColumn*>& given,
                        FieldValues& key);
    bool remove_record(const TableColumns& columns, const RowTexts& before, const FieldValues& key);

    platform::DataAccess& data_access_;
    const platform::Formatter& formatter_;
    const RecordStatements statements_;
    const std::string identity_query_;
    std::shared_ptr<platform::Connection> connection_;
    std::string connected_to_;
};

} // namespace krv::companions
