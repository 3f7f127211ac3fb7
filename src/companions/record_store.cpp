#include "companions/record_store.h"

#include "companions/cell_values.h"
#include "companions/refusal.h"

#include "krv/platform/error.h"

#include <algorithm>
#include <utility>

namespace krv::companions {

using platform::ExecuteResult;
using platform::Value;

namespace {

/// Rolled back unless it is committed.
class Transaction {
public:
    explicit Transaction(platform::Connection& connection)
        : connection_(connection) {
        connection_.BeginTrans();
    }

    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    ~Transaction() {
        if (!is_committed_) {
            roll_back();
        }
    }

    void commit() {
        connection_.CommitTrans();
        is_committed_ = true;
    }

private:
    void roll_back() noexcept {
        try {
            connection_.RollbackTrans();
        } catch (const std::exception&) {
            return; // the engine has done so itself, or does when the connection closes
        }
    }

    platform::Connection& connection_;
    bool is_committed_ = false;
};

void require_one(const ExecuteResult& result, const char* text) {
    if (result.affected != 1) {
        throw Refusal(text);
    }
}

void require_unchanged(const TableColumns& columns,
                       const RowTexts& before,
                       const RowTexts& record) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!shows_the_same(before[i], record[i])) {
            throw Refusal("Il record è stato modificato da altri (colonna \"" + columns[i].caption +
                          "\": ora \"" + record[i] + "\"). Ricaricare l'elenco.");
        }
    }
}

/// Two columns may show one field; they must agree on its value.
void add_value(FieldValues& values,
               const TableColumn& column,
               const std::string& text,
               const platform::Formatter& formatter) {
    const auto same = std::find_if(values.begin(), values.end(), [&](const FieldValue& other) {
        return other.column->field == column.field;
    });
    if (same == values.end()) {
        values.push_back({&column, value_of_cell(column, text, formatter)});
        return;
    }
    const Value value = value_of_cell(column, text, formatter);
    if (formatter.Format(value.view(), {}) != formatter.Format(same->value.view(), {})) {
        throw Refusal("Le colonne \"" + same->column->caption + "\" e \"" + column.caption +
                      "\" danno valori diversi allo stesso campo.");
    }
}

Value value_for(const FieldValues& values, const FieldValue& old) {
    for (const FieldValue& field : values) {
        if (field.column->field == old.column->field) {
            return field.value;
        }
    }
    return old.value;
}

} // namespace

RecordStore::RecordStore(platform::DataAccess& data_access,
                         const platform::Formatter& formatter,
                         const RecordWriterSettings& settings)
    : data_access_(data_access)
    , formatter_(formatter)
    , statements_(settings)
    , identity_query_(settings.identity_query) {}

RecordStore::~RecordStore() {
    disconnect();
}

void RecordStore::connect(std::string_view connection_string) {
    if (connection_ && connected_to_ == connection_string) {
        return;
    }
    disconnect();
    auto connection = data_access_.CreateConnection();
    connection->Open(connection_string, "", "", platform::ado::unspecified);
    connected_to_ = connection_string;
    connection_ = std::move(connection);
}

void RecordStore::disconnect() noexcept {
    if (const auto connection = std::exchange(connection_, nullptr)) {
        try {
            connection->Close();
        } catch (const std::exception&) {
            return; // it is not used again
        }
    }
}

void RecordStore::learn_types(TableColumns& columns) {
    const auto has_no_type = [](const TableColumn& column) { return column.type == 0; };
    if (std::none_of(columns.begin(), columns.end(), has_no_type)) {
        return;
    }
    ExecuteResult result;
    try {
        result = execute(statements_.select_nothing(columns));
    } catch (...) {
        disconnect();
        throw;
    }
    for (std::size_t i = 0; result.records && i < columns.size(); ++i) {
        if (columns[i].type == 0) {
            columns[i].type = result.records->Fields().Item(static_cast<std::int32_t>(i)).Type();
        }
    }
}

RowTexts
RecordStore::update(const TableColumns& columns, const RowTexts& before, const RowTexts& after) {
    FieldValues changed = changes(columns, before, after);
    FieldValues key = key_of(columns, before);
    RowTexts shown = after;
    transact([&] {
        const auto record = read(columns, key);
        if (!record) {
            throw Refusal("Il record non c'è più: è stato eliminato da altri.");
        }
        require_unchanged(columns, before, *record);
        drop_same_values(changed, columns, *record);
        if (!changed.empty()) {
            require_one(execute(statements_.update(changed, key)),
                        "Il database non ha modificato il record.");
        }
        for (FieldValue& field : key) {
            field.value = value_for(changed, field);
        }
        shown = read(columns, key).value_or(after);
    });
    return shown;
}

RowTexts RecordStore::insert(const TableColumns& columns, const RowTexts& row) {
    const FieldValues values = values_of_new(columns, row);
    FieldValues key = key_of(columns, row);
    std::vector<const TableColumn*> given;
    for (const FieldValue& field : key) {
        if (field.value.view().is_null()) {
            given.push_back(field.column);
        }
    }
    RowTexts shown = row;
    transact([&] {
        const bool is_yielded = identity_query_.empty() && !given.empty();
        const ExecuteResult result = execute(
            statements_.insert(values, is_yielded ? given : std::vector<const TableColumn*>()));
        if (!is_yielded) {
            require_one(result, "Il database non ha aggiunto il record.");
        }
        if (!given.empty()) {
            take_given_key(result, given, key);
        }
        shown = read(columns, key).value_or(row);
    });
    return shown;
}

bool RecordStore::remove(const TableColumns& columns, const RowTexts& before) {
    const FieldValues key = key_of(columns, before);
    bool was_there = false;
    transact([&] { was_there = remove_record(columns, before, key); });
    return was_there;
}

bool RecordStore::remove_record(const TableColumns& columns,
                                const RowTexts& before,
                                const FieldValues& key) {
    const auto record = read(columns, key);
    if (!record) {
        return false;
    }
    require_unchanged(columns, before, *record);
    require_one(execute(statements_.remove(key)), "Il database non ha eliminato il record.");
    return true;
}

FieldValues RecordStore::key_of(const TableColumns& columns, const RowTexts& row) const {
    FieldValues key;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].is_key) {
            add_value(key, columns[i], row[i], formatter_);
        }
    }
    return key;
}

void RecordStore::transact(const std::function<void()>& work) {
    try {
        Transaction transaction(*connection_);
        work();
        transaction.commit();
    } catch (...) {
        disconnect();
        throw;
    }
}

ExecuteResult RecordStore::execute(const Statement& statement) {
    return connection_->Execute(statement.sql, statement.parameters);
}

/// \return nothing when there is no such record
std::optional<RowTexts> RecordStore::read(const TableColumns& columns, const FieldValues& key) {
    const ExecuteResult result = execute(statements_.select(columns, key));
    if (!result.records || result.records->Eof()) {
        return std::nullopt;
    }
    RowTexts texts;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto& field = result.records->Fields().Item(static_cast<std::int32_t>(i));
        texts.push_back(shown_text(field.Value(), columns[i].pattern, formatter_));
    }
    result.records->MoveNext();
    if (!result.records->Eof()) {
        throw Refusal("La chiave non è unica: più record corrispondono alla riga.");
    }
    return texts;
}

FieldValues RecordStore::changes(const TableColumns& columns,
                                 const RowTexts& before,
                                 const RowTexts& after) const {
    FieldValues values;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (before[i] != after[i]) {
            add_value(values, columns[i], after[i], formatter_);
        }
    }
    return values;
}

/// "5" typed over as "5,0" is no change, and not every engine counts it as one.
void RecordStore::drop_same_values(FieldValues& values,
                                   const TableColumns& columns,
                                   const RowTexts& record) const {
    std::erase_if(values, [&](const FieldValue& field) {
        const auto index = static_cast<std::size_t>(field.column - columns.data());
        return shown_text(field.value.view(), field.column->pattern, formatter_) == record[index];
    });
}

FieldValues RecordStore::values_of_new(const TableColumns& columns, const RowTexts& row) const {
    FieldValues values;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!is_blank(row[i])) {
            add_value(values, columns[i], row[i], formatter_);
        }
    }
    return values;
}

void RecordStore::take_given_key(const ExecuteResult& result,
                                 const std::vector<const TableColumn*>& given,
                                 FieldValues& key) {
    if (!identity_query_.empty() && given.size() > 1) {
        throw Refusal("Il database può dare il valore di una sola colonna chiave.");
    }
    const auto records =
        identity_query_.empty() ? result.records : execute({identity_query_, {}}).records;
    std::int32_t position = 0;
    for (FieldValue& field : key) {
        if (field.value.view().is_null() && records && !records->Eof()) {
            field.value = Value(records->Fields().Item(position++).Value());
        }
        if (field.value.view().is_null()) {
            throw Refusal("Il database non ha dato un valore alla chiave (colonna \"" +
                          field.column->caption + "\").");
        }
    }
}

} // namespace krv::companions
