#include "providers/sqlite/connection.h"

#include "krv/standard/data_error.h"
#include "providers/sqlite/catalog.h"
#include "providers/sqlite/cursor.h"
#include "providers/sqlite/statement.h"
#include "standard/ado/source_text.h"

namespace krv::providers::sqlite {

namespace {

namespace data_error_number = standard::data_error_number;

void bind_all(Statement& statement, std::span<const platform::Value> parameters) {
    const int expected = sqlite3_bind_parameter_count(statement.handle());
    if (parameters.size() != static_cast<std::size_t>(expected)) {
        throw standard::DataError(data_error_number::wrong_arguments,
                                  "The statement takes " + std::to_string(expected) +
                                      " parameters, " + std::to_string(parameters.size()) +
                                      " were given.",
                                  layer);
    }
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        statement.bind(static_cast<int>(i), parameters[i].view());
    }
}

[[noreturn]] void refuse(const char* text) {
    throw standard::DataError(data_error_number::bad_statement, text, layer);
}

Statement prepared_to_read(Database& database, std::string_view sql) {
    const ReadOnlyScope guard(database);
    try {
        return Statement(database, sql);
    } catch (const standard::DataError& error) {
        if ((error.native_code() & 0xFF) == SQLITE_AUTH) {
            refuse("The statement would do more than read; it was not run.");
        }
        throw;
    }
}

} // namespace

std::optional<standard::TableName> Connection::find_table(const standard::TableName& name) {
    return find_in_catalog(*database_, name);
}

std::unique_ptr<standard::ProviderCursor> Connection::open_table(const standard::TableName& name) {
    return open_query("SELECT * FROM " + standard::quoted_name(name, '"'));
}

std::unique_ptr<standard::ProviderCursor> Connection::open_query(std::string_view sql) {
    Statement statement = prepared_to_read(*database_, sql);
    if (!statement.is_read_only()) {
        refuse("The statement would write; it was not run.");
    }
    if (statement.column_count() == 0) {
        refuse("The statement yields no rows; it was not run.");
    }
    if (sqlite3_bind_parameter_count(statement.handle()) > 0) {
        refuse("The statement needs parameters, which a record source does not have.");
    }
    return std::make_unique<Cursor>(database_, std::move(statement), Cursor::Rights::only_read);
}

standard::ProviderOutcome Connection::execute(std::string_view sql,
                                              std::span<const platform::Value> parameters) {
    Statement statement(*database_, sql);
    bind_all(statement, parameters);
    standard::ProviderOutcome outcome;
    const bool yields_rows = statement.column_count() > 0;
    if (yields_rows && statement.is_read_only()) {
        outcome.cursor =
            std::make_unique<Cursor>(database_, std::move(statement), Cursor::Rights::all);
        return outcome;
    }
    const auto before = sqlite3_total_changes64(database_->handle());
    if (yields_rows) {
        // To the end at once: what it writes must not wait for somebody to read its rows.
        Cursor rows(database_, std::move(statement), Cursor::Rights::all);
        outcome.cursor = std::make_unique<ReadAheadCursor>(rows);
    } else {
        statement.step();
    }
    if (sqlite3_total_changes64(database_->handle()) != before) {
        outcome.affected = sqlite3_changes64(database_->handle());
    }
    return outcome;
}

bool Connection::in_transaction() const {
    return sqlite3_get_autocommit(database_->handle()) == 0;
}

void Connection::begin() {
    run("BEGIN");
}

void Connection::commit() {
    run("COMMIT");
}

void Connection::rollback() {
    run("ROLLBACK");
}

void Connection::run(std::string_view sql) {
    Statement(*database_, sql).step();
}

} // namespace krv::providers::sqlite
