#include "standard/ado/source_opening.h"

#include "standard/ado/ado_errors.h"
#include "standard/ado/source_text.h"

namespace krv::standard {

namespace {

std::optional<TableName> find(ProviderConnection& connection, std::string_view text) {
    // The whole text first: a table's name may hold dots and quotes itself.
    if (auto found = connection.find_table({std::string(text)})) {
        return found;
    }
    const auto parts = split_name(text);
    const bool is_new = parts && *parts != TableName{std::string(text)};
    return is_new ? connection.find_table(*parts) : std::nullopt;
}

void require_usable(std::string_view text, SourceKind kind) {
    if (text.empty()) {
        throw DataError(
            data_error_number::bad_statement, "The record source is empty.", recordset_layer);
    }
    if (text.find('\0') != std::string_view::npos) {
        throw DataError(kind == SourceKind::table ? data_error_number::no_such_table
                                                  : data_error_number::bad_statement,
                        "The record source holds a NUL character.",
                        recordset_layer);
    }
}

} // namespace

std::unique_ptr<ProviderCursor>
open_source(ProviderConnection& connection, std::string_view source, SourceKind kind) {
    const std::string_view text = trimmed_source(source);
    require_usable(text, kind);
    if (kind != SourceKind::command) {
        if (const auto table = find(connection, text)) {
            return connection.open_table(*table);
        }
        if (kind == SourceKind::table || is_lone_identifier(text)) {
            throw DataError(data_error_number::no_such_table,
                            "no such table: " + std::string(text),
                            recordset_layer);
        }
    }
    return connection.open_query(text);
}

} // namespace krv::standard
