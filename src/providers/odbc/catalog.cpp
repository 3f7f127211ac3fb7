#include "providers/odbc/catalog.h"

#include "standard/letter_case.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace krv::providers::odbc {

namespace {

using standard::TableName;

/// Parts of a name as ODBC divides it; empty for not given.
struct FullName {
    std::string catalog;
    std::string schema;
    std::string table;
};

std::optional<FullName> divided(const TableName& name, const DriverTraits& traits) {
    FullName result;
    if (name.empty() || name.size() > 3) {
        return std::nullopt;
    }
    result.table = name.back();
    if (name.size() == 2) {
        if (!traits.has_schemas && !traits.has_catalogs) {
            return std::nullopt;
        }
        (traits.has_schemas ? result.schema : result.catalog) = name.front();
    } else if (name.size() == 3) {
        if (!traits.has_schemas || !traits.has_catalogs) {
            return std::nullopt;
        }
        result.catalog = name[0];
        result.schema = name[1];
    }
    return result;
}

/// MariaDB's catalog cannot even be asked for such characters.
bool is_beyond_the_basic_plane(char first_byte) {
    return static_cast<unsigned char>(first_byte) >= 0xF0;
}

/// Drivers splice what they look for into texts of their own. Only what cannot leave those texts is
/// handed to them; for anything else they list what they have.
bool is_harmless(std::string_view text) {
    return std::none_of(text.begin(), text.end(), [](char c) {
        return static_cast<unsigned char>(c) < ' ' || c == '\'' || c == '"' || c == '\\' ||
               c == '`' || c == '$' || c == '?' || c == '{' || c == 0x7F ||
               is_beyond_the_basic_plane(c);
    });
}

std::string pattern_for(std::string_view text, const DriverTraits& traits) {
    std::string result;
    for (const char c : text) {
        if (c == '_' || c == '%') {
            result += traits.escape;
        }
        result += c;
    }
    return result;
}

std::string column_text(const StatementHandle& statement, SQLUSMALLINT column) {
    std::array<char16_t, 1024> text{};
    SQLLEN length = SQL_NULL_DATA;
    statement.check(
        SQLGetData(statement.get(), column, SQL_C_WCHAR, text.data(), sizeof text, &length),
        Phase::running);
    return length == SQL_NULL_DATA ? std::string() : narrow_text(std::u16string_view(text.data()));
}

template <class Text>
SQLSMALLINT length_of(const Text& text) {
    return static_cast<SQLSMALLINT>(text.size());
}

SQLRETURN wide_tables(const StatementHandle& statement,
                      const std::u16string& catalog,
                      const std::u16string& pattern) {
    return SQLTablesW(statement.get(),
                      catalog.empty() ? nullptr : as_sql(catalog),
                      length_of(catalog),
                      nullptr,
                      0,
                      as_sql(pattern),
                      length_of(pattern),
                      nullptr,
                      0);
}

std::vector<FullName> list(Session& session, const FullName& wanted, const std::string& pattern) {
    const StatementHandle statement = session.new_statement();
    // Schemas are compared here: a schema's name is a pattern too.
    statement.check(session.traits().is_narrow
                        ? SQLTables(statement.get(),
                                    nullptr,
                                    0,
                                    nullptr,
                                    0,
                                    as_sql(pattern),
                                    length_of(pattern),
                                    nullptr,
                                    0)
                        : wide_tables(statement, wide_text(wanted.catalog), wide_text(pattern)),
                    Phase::running);
    std::vector<FullName> names;
    for (;;) {
        const SQLRETURN code = SQLFetch(statement.get());
        statement.check(code, Phase::running);
        if (code == SQL_NO_DATA) {
            return names;
        }
        FullName& name = names.emplace_back();
        name.catalog = column_text(statement, 1);
        name.schema = column_text(statement, 2);
        name.table = column_text(statement, 3);
    }
}

template <class Equal>
std::vector<FullName>
matching(const std::vector<FullName>& names, const FullName& wanted, Equal equal) {
    const auto matches = [&](const std::string& part, const std::string& asked) {
        return asked.empty() || equal(part, asked);
    };
    std::vector<FullName> result;
    std::copy_if(names.begin(), names.end(), std::back_inserter(result), [&](const auto& name) {
        return equal(name.table, wanted.table) && matches(name.schema, wanted.schema) &&
               matches(name.catalog, wanted.catalog);
    });
    return result;
}

TableName joined(const FullName& name, const FullName& wanted, const DriverTraits& traits) {
    TableName result;
    if (traits.has_catalogs && !name.catalog.empty() &&
        (!traits.has_schemas || !wanted.catalog.empty())) {
        result.push_back(name.catalog);
    }
    if (traits.has_schemas && !name.schema.empty()) {
        result.push_back(name.schema);
    }
    result.push_back(name.table);
    return result;
}

std::optional<TableName>
chosen(const std::vector<FullName>& matches, const FullName& wanted, const DriverTraits& traits) {
    const bool same_table = std::all_of(matches.begin(), matches.end(), [&](const FullName& name) {
        return name.table == matches.front().table;
    });
    if (matches.empty() || !same_table) {
        return std::nullopt;
    }
    if (matches.size() > 1) {
        return wanted.schema.empty() && wanted.catalog.empty()
                   ? std::optional(TableName{matches.front().table})
                   : std::nullopt;
    }
    return joined(matches.front(), wanted, traits);
}

std::optional<TableName>
choose(const std::vector<FullName>& names, const FullName& wanted, const DriverTraits& traits) {
    const auto exact = matching(names, wanted, std::equal_to<>());
    return chosen(exact.empty() ? matching(names, wanted, standard::equal_in_any_case) : exact,
                  wanted,
                  traits);
}

} // namespace

std::optional<TableName> find_in_catalog(Session& session, const TableName& name) {
    const DriverTraits& traits = session.traits();
    const auto wanted = divided(name, traits);
    constexpr std::size_t longest_character = 4;
    constexpr std::size_t longest_name = 1000;
    const std::size_t most =
        traits.longest_name == 0 ? longest_name : traits.longest_name * longest_character;
    if (!wanted || wanted->table.size() > most || wanted->catalog.size() > longest_name ||
        (!wanted->catalog.empty() && !is_harmless(wanted->catalog))) {
        return std::nullopt;
    }
    if (is_harmless(wanted->table) && !traits.escape.empty()) {
        const auto names = list(session, *wanted, pattern_for(wanted->table, traits));
        const auto exact = matching(names, *wanted, std::equal_to<>());
        if (!exact.empty()) {
            return chosen(exact, *wanted, traits);
        }
    }
    // A long list of tables is not worth asking for where the text is hardly a name.
    if (name.size() == 1 && begins_like_a_query(name.front()) && is_harmless(wanted->table)) {
        return std::nullopt;
    }
    return choose(list(session, *wanted, "%"), *wanted, traits);
}

} // namespace krv::providers::odbc
