#include "providers/sqlite/catalog.h"

#include "providers/sqlite/statement.h"
#include "standard/ado/source_text.h"
#include "standard/letter_case.h"

#include <algorithm>
#include <string>
#include <vector>

namespace krv::providers::sqlite {

namespace {

std::vector<std::string> schemas(const Database& database) {
    std::vector<std::string> names;
    Statement list(database, "PRAGMA database_list");
    while (list.step()) {
        names.emplace_back(list.text(1));
    }
    const auto temporary = std::find(names.begin(), names.end(), "temp");
    if (temporary != names.end()) {
        std::rotate(names.begin(), temporary, temporary + 1);
    }
    return names;
}

std::vector<std::string> tables(const Database& database, const std::string& schema) {
    const std::string sql = "SELECT name FROM " + standard::quoted_name({&schema, 1}, '"') +
                            ".sqlite_schema WHERE type IN ('table', 'view')";
    // The catalog itself is a table too, though it does not list itself.
    std::vector<std::string> names{"sqlite_schema", "sqlite_master"};
    Statement list(database, sql);
    while (list.step()) {
        names.emplace_back(list.text(0));
    }
    return names;
}

} // namespace

std::optional<standard::TableName> find_in_catalog(const Database& database,
                                                   const standard::TableName& name) {
    if (name.empty() || name.size() > 2) {
        return std::nullopt;
    }
    std::vector<standard::TableName> similar;
    for (const std::string& schema : schemas(database)) {
        if (name.size() == 2 && !standard::equal_in_any_case(schema, name.front())) {
            continue;
        }
        for (std::string& table : tables(database, schema)) {
            if (table == name.back()) {
                return standard::TableName{schema, std::move(table)};
            }
            if (standard::equal_in_any_case(table, name.back())) {
                similar.push_back({schema, std::move(table)});
            }
        }
    }
    return similar.size() == 1 ? std::optional(similar.front()) : std::nullopt;
}

} // namespace krv::providers::sqlite
