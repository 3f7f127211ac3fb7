#include "providers/odbc/connection.h"

#include "krv/standard/data_error.h"
#include "providers/odbc/bind.h"
#include "providers/odbc/catalog.h"
#include "providers/odbc/cursor.h"
#include "providers/odbc/statement_text.h"
#include "standard/ado/source_text.h"

#include <optional>

namespace krv::providers::odbc {

namespace {

namespace data_error_number = standard::data_error_number;

[[noreturn]] void refuse(const char* text) {
    throw standard::DataError(data_error_number::bad_statement, text, layer);
}

SQLSMALLINT result_columns(const StatementHandle& statement, Phase phase) {
    SQLSMALLINT count = 0;
    statement.check(SQLNumResultCols(statement.get(), &count), phase);
    return count;
}

/// Before it runs, by the driver's own look at it.
void require_reading(const StatementHandle& statement) {
    SQLSMALLINT parameters = 0;
    statement.check(SQLNumParams(statement.get(), &parameters), Phase::preparing);
    if (parameters > 0) {
        refuse("The statement needs parameters, which a record source does not have.");
    }
    if (result_columns(statement, Phase::preparing) == 0) {
        refuse("The statement yields no rows; it was not run.");
    }
}

/// Forward and read-only, which is what drivers do by default; some take the whole result into
/// memory when they are asked for more.
void set_cursor(const StatementHandle& statement) {
    const auto set = [&](SQLINTEGER attribute, SQLULEN value) {
        ignore(SQLSetStmtAttrW(
            statement.get(), attribute, reinterpret_cast<SQLPOINTER>(value), SQL_IS_UINTEGER));
    };
    set(SQL_ATTR_CURSOR_TYPE, SQL_CURSOR_FORWARD_ONLY);
    set(SQL_ATTR_CONCURRENCY, SQL_CONCUR_READ_ONLY);
}

std::int64_t changed_rows(const StatementHandle& statement) {
    SQLLEN count = 0;
    statement.check(SQLRowCount(statement.get(), &count), Phase::running);
    return count > 0 ? count : 0;
}

/// Ends what was begun for a reading that has come to no cursor; a cursor ends it itself.
class ReadingScope {
public:
    explicit ReadingScope(Session& session)
        : session_(session) {
        session_.begin_reading();
    }

    ReadingScope(const ReadingScope&) = delete;
    ReadingScope& operator=(const ReadingScope&) = delete;

    ~ReadingScope() {
        if (session_.active() == nullptr) {
            session_.end_reading();
        }
    }

private:
    Session& session_;
};

} // namespace

std::optional<standard::TableName> Connection::find_table(const standard::TableName& name) {
    return find_in_catalog(*session_, name);
}

std::string Connection::quoted(const standard::TableName& name) const {
    const std::string& quote = session_->traits().quote;
    if (quote.size() == 1) {
        return standard::quoted_name(name, quote.front());
    }
    std::string result;
    for (const std::string& part : name) {
        if (!standard::is_lone_identifier(part) || part.front() == '[') {
            throw standard::DataError(data_error_number::no_such_table,
                                      "The driver has no quotes for the name \"" + part + "\".",
                                      layer);
        }
        result += (result.empty() ? "" : ".") + part;
    }
    return result;
}

std::unique_ptr<standard::ProviderCursor> Connection::open_table(const standard::TableName& name) {
    return open_to_read("SELECT * FROM " + quoted(name));
}

std::unique_ptr<standard::ProviderCursor> Connection::open_query(std::string_view sql) {
    const Engine engine = session_->traits().engine;
    sql = single_statement(sql, engine);
    if (!only_reads(sql, engine)) {
        refuse("The statement does not only read; it was not run.");
    }
    return open_to_read(sql);
}

std::unique_ptr<standard::ProviderCursor> Connection::open_to_read(std::string_view sql) {
    session_->grant(Session::Rights::only_read);
    StatementHandle statement = session_->new_statement();
    const ReadingScope scope(*session_);
    set_cursor(statement);
    session_->prepare(statement, sql);
    require_reading(statement);
    statement.check(SQLExecute(statement.get()), Phase::running);
    return std::make_unique<Cursor>(session_, std::move(statement));
}

standard::ProviderOutcome Connection::execute(std::string_view sql,
                                              std::span<const platform::Value> parameters) {
    const Engine engine = session_->traits().engine;
    sql = single_statement(sql, engine);
    session_->grant(Session::Rights::all);
    StatementHandle statement = session_->new_statement();
    set_cursor(statement);
    std::optional<Parameters> bound;
    const bool has_parameters = !parameters.empty() || sql.find('?') != std::string_view::npos;
    if (engine == Engine::mariadb && !has_parameters) {
        // Not every statement can be prepared there.
        session_->execute(statement, sql);
    } else {
        session_->prepare(statement, sql);
        bound.emplace(statement, parameters, engine);
        statement.check(SQLExecute(statement.get()), Phase::running);
    }
    return outcome_of(std::move(statement), only_reads(sql, engine));
}

standard::ProviderOutcome Connection::outcome_of(StatementHandle statement, bool reads) {
    standard::ProviderOutcome outcome;
    if (result_columns(statement, Phase::running) == 0) {
        outcome.affected = reads ? 0 : changed_rows(statement);
        return outcome;
    }
    const std::int64_t changed = reads ? 0 : changed_rows(statement);
    auto cursor = std::make_unique<Cursor>(session_, std::move(statement));
    if (!reads) {
        // To the end at once: what it writes must not wait for somebody to read its rows.
        cursor->read_ahead();
        outcome.affected = changed > 0 ? changed : cursor->rows_ahead();
    }
    outcome.cursor = std::move(cursor);
    return outcome;
}

} // namespace krv::providers::odbc
