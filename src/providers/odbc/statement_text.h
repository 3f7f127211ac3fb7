#pragma once

#include <string>
#include <string_view>

namespace krv::providers::odbc {

/// Engines whose ways are known.
enum class Engine { other, postgresql, mariadb, sqlite };

/// Cuts blanks, comments and semicolons behind the first statement. The making of a trigger or
/// function with statements of its own is one.
/// \throws DataError -2147217900 when there is no statement, or a second one
std::string_view single_statement(std::string_view sql, Engine engine);

/// Whether a statement only reads, by its words: it begins with one that reads, and none that
/// writes stands outside its quotes and comments. Engines have functions that write all the same.
bool only_reads(std::string_view sql, Engine engine);

/// Whether the text, a name or a statement, begins as statements that read do.
bool begins_like_a_query(std::string_view text);

} // namespace krv::providers::odbc
