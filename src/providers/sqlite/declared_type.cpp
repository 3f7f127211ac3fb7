#include "providers/sqlite/declared_type.h"

#include "standard/ado/field_types.h"
#include "standard/ascii.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <string>

#include <sqlite3.h>

namespace krv::providers::sqlite {

namespace {

namespace field_type = standard::field_type;

struct NamedType {
    std::string_view name;
    std::int16_t type;
    std::int16_t long_type = 0; ///< without a length, or with too large a one; 0: has no length
};

constexpr NamedType named_types[] = {
    {"INTEGER", field_type::integer},
    {"INT", field_type::integer},
    {"INT4", field_type::integer},
    {"MEDIUMINT", field_type::integer},
    {"LONG", field_type::integer},
    {"COUNTER", field_type::integer},
    {"AUTOINCREMENT", field_type::integer},
    {"BIGINT", field_type::big_int},
    {"INT8", field_type::big_int},
    {"SMALLINT", field_type::small_int},
    {"INT2", field_type::small_int},
    {"SHORT", field_type::small_int},
    {"TINYINT", field_type::tiny_int},
    {"BYTE", field_type::unsigned_tiny_int},
    {"BOOLEAN", field_type::boolean},
    {"BOOL", field_type::boolean},
    {"BIT", field_type::boolean},
    {"YESNO", field_type::boolean},
    {"LOGICAL", field_type::boolean},
    {"SINGLE", field_type::single},
    {"FLOAT4", field_type::single},
    {"REAL", field_type::double_float},
    {"FLOAT", field_type::double_float},
    {"DOUBLE", field_type::double_float},
    {"CURRENCY", field_type::currency},
    {"MONEY", field_type::currency},
    {"SMALLMONEY", field_type::currency},
    {"DECIMAL", field_type::numeric},
    {"NUMERIC", field_type::numeric},
    {"NUMBER", field_type::numeric},
    {"DATE", field_type::db_date},
    {"TIME", field_type::db_time},
    {"DATETIME", field_type::db_time_stamp},
    {"TIMESTAMP", field_type::db_time_stamp},
    {"CHAR", field_type::w_char, field_type::long_var_w_char},
    {"NCHAR", field_type::w_char, field_type::long_var_w_char},
    {"VARCHAR", field_type::var_w_char, field_type::long_var_w_char},
    {"NVARCHAR", field_type::var_w_char, field_type::long_var_w_char},
    {"CHARACTER VARYING", field_type::var_w_char, field_type::long_var_w_char},
    {"TEXT", field_type::var_w_char, field_type::long_var_w_char},
    {"CLOB", field_type::long_var_w_char},
    {"MEMO", field_type::long_var_w_char},
    {"NTEXT", field_type::long_var_w_char},
    {"LONGTEXT", field_type::long_var_w_char},
    {"JSON", field_type::long_var_w_char},
    {"XML", field_type::long_var_w_char},
    {"BINARY", field_type::binary, field_type::long_var_binary},
    {"VARBINARY", field_type::var_binary, field_type::long_var_binary},
    {"BLOB", field_type::long_var_binary},
    {"IMAGE", field_type::long_var_binary},
    {"OLE", field_type::long_var_binary},
    {"LONGBINARY", field_type::long_var_binary},
    {"GUID", field_type::guid},
    {"UUID", field_type::guid},
    {"UNIQUEIDENTIFIER", field_type::guid},
};

std::string_view take_word(std::string_view& text) {
    text = standard::trimmed(text);
    const auto end = std::find_if(text.begin(), text.end(), standard::is_blank);
    const auto word = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(word.size());
    return word;
}

/// The words that name the type, in capitals: the first one without `UNSIGNED`, two for the one
/// type whose name has two.
std::string type_name(std::string_view words) {
    std::string name;
    while (name.empty() && !words.empty()) {
        const auto word = take_word(words);
        if (!standard::same_keyword(word, "UNSIGNED")) {
            name = word;
        }
    }
    if (standard::same_keyword(name, "CHARACTER") &&
        standard::same_keyword(take_word(words), "VARYING")) {
        name += " VARYING";
    }
    std::transform(name.begin(), name.end(), name.begin(), standard::upper_ascii);
    std::erase_if(
        name, [](char c) { return std::string_view("[]\"`").find(c) != std::string_view::npos; });
    return name;
}

/// The number behind the parenthesis; 0 when there is none, or too large a one.
std::int32_t length_in(std::string_view text) {
    const std::size_t open = text.find('(');
    if (open == std::string_view::npos) {
        return 0;
    }
    text = standard::trimmed(text.substr(open + 1));
    std::int32_t length = 0;
    for (; !text.empty() && standard::is_ascii_digit(text.front()); text.remove_prefix(1)) {
        length = length * 10 + (text.front() - '0');
        if (length > standard::longest_sized_field) {
            return 0;
        }
    }
    return length;
}

/// SQLite's own rule for type names that it does not know: column affinity by parts of the name.
std::int16_t type_by_affinity(std::string_view declared) {
    std::string name(declared);
    std::transform(name.begin(), name.end(), name.begin(), standard::upper_ascii);
    const auto holds = [&](const char* part) { return name.find(part) != std::string::npos; };
    if (holds("INT")) {
        return field_type::integer;
    }
    if (holds("CHAR") || holds("CLOB") || holds("TEXT")) {
        return field_type::long_var_w_char;
    }
    if (holds("BLOB")) {
        return field_type::long_var_binary;
    }
    if (holds("REAL") || holds("FLOA") || holds("DOUB")) {
        return field_type::double_float;
    }
    return field_type::numeric;
}

ColumnType of_fixed_size(std::int16_t type) {
    return {type, standard::fixed_size_of(type)};
}

} // namespace

ColumnType declared_type(std::string_view declared) {
    if (standard::trimmed(declared).empty()) {
        return {};
    }
    const std::string name = type_name(declared.substr(0, declared.find('(')));
    const auto known = std::find_if(std::begin(named_types),
                                    std::end(named_types),
                                    [&](const NamedType& type) { return type.name == name; });
    if (known == std::end(named_types)) {
        return of_fixed_size(type_by_affinity(declared));
    }
    if (known->long_type == 0) {
        return of_fixed_size(known->type);
    }
    const std::int32_t length = length_in(declared);
    return length > 0 ? ColumnType{known->type, length} : of_fixed_size(known->long_type);
}

ColumnType stored_type(int storage, std::int64_t whole) {
    switch (storage) {
    case SQLITE_INTEGER: {
        using Long = std::numeric_limits<std::int32_t>;
        const bool fits = whole >= Long::min() && whole <= Long::max();
        return of_fixed_size(fits ? field_type::integer : field_type::big_int);
    }
    case SQLITE_FLOAT:
        return of_fixed_size(field_type::double_float);
    case SQLITE_BLOB:
        return of_fixed_size(field_type::long_var_binary);
    default:
        return of_fixed_size(field_type::long_var_w_char);
    }
}

} // namespace krv::providers::sqlite
