#include "providers/sqlite/authorizer.h"

#include "standard/ascii.h"

#include <algorithm>
#include <string_view>

#include <sqlite3.h>

namespace krv::providers::sqlite {

namespace {

template <class Names>
bool holds(const Names& names, const char* name) {
    return std::any_of(std::begin(names), std::end(names), [&](std::string_view listed) {
        return name != nullptr && standard::same_keyword(listed, name);
    });
}

bool is_describing_pragma(const char* name) {
    constexpr std::string_view names[] = {"table_info",
                                          "table_xinfo",
                                          "table_list",
                                          "index_list",
                                          "index_info",
                                          "index_xinfo",
                                          "foreign_key_list",
                                          "database_list",
                                          "data_version"}; // a full-text table asks for it
    return holds(names, name);
}

/// Pragmas can be read as tables; most of them do something then.
bool is_acting_table(const char* name) {
    constexpr std::string_view prefix = "pragma_";
    const std::string_view table = name;
    return table.substr(0, prefix.size()) == prefix && !is_describing_pragma(name + prefix.size());
}

/// Functions that act although they stand in a SELECT.
bool is_acting_function(const char* name) {
    constexpr std::string_view names[] = {"load_extension", "fts3_tokenizer", "optimize"};
    return holds(names, name);
}

} // namespace

int authorize(void* data,
              int action,
              const char* first,
              const char* second,
              const char* /*database*/,
              const char* /*trigger*/) noexcept {
    if (!*static_cast<const bool*>(data)) {
        return SQLITE_OK;
    }
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_RECURSIVE:
        return SQLITE_OK;
    case SQLITE_READ:
        return is_acting_table(first) ? SQLITE_DENY : SQLITE_OK;
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
        // Deliberate: an R-tree compiles its writing statements as soon as it is looked at. A
        // statement of the user's that writes rows is found by sqlite3_stmt_readonly.
        return SQLITE_OK;
    case SQLITE_FUNCTION:
        return is_acting_function(second) ? SQLITE_DENY : SQLITE_OK;
    case SQLITE_PRAGMA:
        return is_describing_pragma(first) ? SQLITE_OK : SQLITE_DENY;
    default:
        return SQLITE_DENY;
    }
}

} // namespace krv::providers::sqlite
