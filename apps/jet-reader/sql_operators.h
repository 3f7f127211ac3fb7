#pragma once

#include <string>
#include <vector>

namespace krv::jet_reader {

/// A part of an expression that has been translated so far.
struct SqlPart {
    enum class Kind {
        operand,   ///< a value: name, literal, call, something in parentheses
        operation, ///< an operator: `+ - * / \ ^ &` or `mod`
        other      ///< keyword, comma, comparison: what an operand does not reach across
    };

    Kind kind;
    std::string text; ///< SQLite's SQL, or the operator
};

/// Replaces the operators that SQLite does not have, or has with another meaning or rank (`^`, `\`,
/// `Mod`, `&`), by calls of functions of ours, and joins the parts. `/` never rounds.
/// \throws DataError -2147217900 when an operand is missing
std::string join_with_operators(std::vector<SqlPart> parts);

} // namespace krv::jet_reader
