#include "providers/odbc/session.h"

#include "providers/odbc/cursor.h"
#include "standard/ascii.h"

#include <array>
#include <utility>

namespace krv::providers::odbc {

namespace {

Engine engine_of(std::string_view name) {
    using standard::starts_with_keyword;
    if (starts_with_keyword(name, "PostgreSQL")) {
        return Engine::postgresql;
    }
    if (starts_with_keyword(name, "MariaDB") || starts_with_keyword(name, "MySQL")) {
        return Engine::mariadb;
    }
    return starts_with_keyword(name, "SQLite") ? Engine::sqlite : Engine::other;
}

/// Numbers travel through pointer arguments.
SQLPOINTER as_pointer(SQLULEN value) {
    return reinterpret_cast<SQLPOINTER>(value);
}

} // namespace

Session::Session(const OdbcSettings& settings)
    : link_(Link::connected(settings)) {
    traits_.is_narrow = link_->is_narrow();
    learn_traits();
}

Session::~Session() {
    if (in_transaction_) {
        ignore(SQLEndTran(SQL_HANDLE_DBC, link_->get(), SQL_ROLLBACK));
    }
}

void Session::learn_traits() {
    traits_.engine = engine_of(info(SQL_DBMS_NAME));
    const std::string quote = info(SQL_IDENTIFIER_QUOTE_CHAR);
    traits_.quote = quote == " " ? std::string() : quote;
    traits_.escape = info(SQL_SEARCH_PATTERN_ESCAPE);
    traits_.has_schemas = (info_number(SQL_SCHEMA_USAGE) & SQL_SU_DML_STATEMENTS) != 0;
    traits_.has_catalogs = (info_number(SQL_CATALOG_USAGE) & SQL_CU_DML_STATEMENTS) != 0;
    traits_.longest_name = info_short(SQL_MAX_TABLE_NAME_LEN);
    const SQLUINTEGER extensions = info_number(SQL_GETDATA_EXTENSIONS);
    const auto can = [&](SQLUINTEGER what) { return (extensions & what) == what; };
    traits_.reads_long_in_rows = can(SQL_GD_ANY_COLUMN | SQL_GD_ANY_ORDER | SQL_GD_BOUND);
    // MariaDB's driver (3.1.15) has only the last row of a block when it streams.
    traits_.reads_long_in_blocks =
        traits_.reads_long_in_rows && can(SQL_GD_BLOCK) && traits_.engine != Engine::mariadb;
    if (traits_.engine == Engine::postgresql) {
        // Where texts end must not depend on the server's settings.
        run("SET standard_conforming_strings = on");
    }
}

std::string Session::info(SQLUSMALLINT what) const {
    std::array<char16_t, 256> text{};
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(link_->get(),
                                   what,
                                   text.data(),
                                   static_cast<SQLSMALLINT>(sizeof text - sizeof text[0]),
                                   &length))) {
        return {};
    }
    return narrow_text(std::u16string_view(text.data()));
}

SQLUINTEGER Session::info_number(SQLUSMALLINT what) const {
    SQLUINTEGER value = 0;
    ignore(SQLGetInfoW(link_->get(), what, &value, sizeof value, nullptr));
    return value;
}

SQLUSMALLINT Session::info_short(SQLUSMALLINT what) const {
    SQLUSMALLINT value = 0;
    ignore(SQLGetInfoW(link_->get(), what, &value, sizeof value, nullptr));
    return value;
}

StatementHandle Session::new_statement() {
    if (active_ != nullptr) {
        active_->read_ahead();
    }
    return StatementHandle(SQL_HANDLE_DBC, link_->get());
}

void Session::grant(Rights rights) {
    const bool only_read = rights == Rights::only_read;
    switch (traits_.engine) {
    case Engine::postgresql:
        // Each time: what is read may have set it back by a function.
        if (!in_transaction_ && (only_read || rights_ != rights)) {
            run(only_read ? "SET default_transaction_read_only = on"
                          : "RESET default_transaction_read_only");
        }
        break;
    case Engine::mariadb:
        if (!in_transaction_ && (only_read || rights_ != rights)) {
            run(only_read ? "SET SESSION TRANSACTION READ ONLY"
                          : "SET SESSION TRANSACTION READ WRITE");
        }
        break;
    case Engine::sqlite:
        if (rights_ != rights) {
            run(only_read ? "PRAGMA query_only = ON" : "PRAGMA query_only = OFF");
        }
        break;
    case Engine::other:
        break;
    }
    rights_ = in_transaction_ && traits_.engine != Engine::sqlite ? rights_ : rights;
}

void Session::run(std::string_view sql) {
    StatementHandle statement = new_statement();
    execute(statement, sql);
}

void Session::prepare(const StatementHandle& statement, std::string_view sql) const {
    const std::u16string wide = wide_text(sql);
    statement.check(
        traits_.is_narrow
            ? SQLPrepare(statement.get(), as_sql(sql), static_cast<SQLINTEGER>(sql.size()))
            : SQLPrepareW(statement.get(), as_sql(wide), static_cast<SQLINTEGER>(wide.size())),
        Phase::preparing);
}

void Session::execute(const StatementHandle& statement, std::string_view sql) const {
    const std::u16string wide = wide_text(sql);
    statement.check(
        traits_.is_narrow
            ? SQLExecDirect(statement.get(), as_sql(sql), static_cast<SQLINTEGER>(sql.size()))
            : SQLExecDirectW(statement.get(), as_sql(wide), static_cast<SQLINTEGER>(wide.size())),
        Phase::running);
}

void Session::set_autocommit(bool on) {
    link_->check(SQLSetConnectAttrW(link_->get(),
                                    SQL_ATTR_AUTOCOMMIT,
                                    as_pointer(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF),
                                    SQL_IS_UINTEGER),
                 Phase::running);
}

void Session::begin_reading() {
    if (traits_.engine == Engine::postgresql && !in_transaction_) {
        set_autocommit(false);
        is_reading_ = true;
    }
}

void Session::end_reading() noexcept {
    if (std::exchange(is_reading_, false)) {
        ignore(SQLEndTran(SQL_HANDLE_DBC, link_->get(), SQL_COMMIT));
        ignore(SQLSetConnectAttrW(
            link_->get(), SQL_ATTR_AUTOCOMMIT, as_pointer(SQL_AUTOCOMMIT_ON), SQL_IS_UINTEGER));
    }
}

void Session::begin() {
    if (active_ != nullptr) {
        active_->read_ahead();
    }
    grant(Rights::all);
    set_autocommit(false);
    in_transaction_ = true;
}

void Session::end(SQLSMALLINT completion) {
    if (active_ != nullptr) {
        active_->read_ahead();
    }
    const SQLRETURN code = SQLEndTran(SQL_HANDLE_DBC, link_->get(), completion);
    link_->check(code, Phase::running);
    in_transaction_ = false;
    set_autocommit(true);
}

} // namespace krv::providers::odbc
