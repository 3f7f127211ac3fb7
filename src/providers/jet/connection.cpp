#include "providers/jet/connection.h"

#include "krv/standard/data_error.h"
#include "providers/jet/cursor.h"
#include "standard/ascii.h"
#include "standard/letter_case.h"

#include <algorithm>

namespace krv::providers::jet {

namespace {

using protocol::Answer;
using protocol::Request;
using standard::DataError;
namespace data_error_number = standard::data_error_number;

FrameWriter with_text(std::string_view text) {
    FrameWriter payload;
    payload.put_text(text);
    return payload;
}

[[noreturn]] void refuse_to_write() {
    throw DataError(data_error_number::not_supported,
                    "A Jet database is only read; nothing can be written to it.",
                    layer);
}

bool is_select(std::string_view sql) {
    while (!sql.empty() && (standard::is_blank(sql.front()) || sql.front() == '(')) {
        sql.remove_prefix(1);
    }
    return standard::starts_with_keyword(sql, "SELECT");
}

} // namespace

Connection::Connection(std::shared_ptr<ReaderSession> session, std::string_view password)
    : session_(std::move(session)) {
    const Payload answer =
        session_->ask_and_wait(Request::open, with_text(password), Answer::opened);
    try {
        read_tables(FrameReader(answer.bytes()));
    } catch (const BadFrame&) {
        session_->refuse();
    }
}

void Connection::read_tables(FrameReader reader) {
    if (reader.take<std::uint32_t>() != protocol::version) {
        throw DataError(data_error_number::unspecified,
                        "The reader of Jet files is of another version than the program.",
                        layer);
    }
    for (auto count = reader.take<std::uint32_t>(); count > 0; --count) {
        tables_.emplace_back(reader.take_text());
    }
    reader.require_end();
}

std::optional<standard::TableName> Connection::find_table(const standard::TableName& name) {
    if (name.size() != 1) {
        return std::nullopt;
    }
    if (std::find(tables_.begin(), tables_.end(), name.front()) != tables_.end()) {
        return name;
    }
    const auto is_similar = [&](const std::string& table) {
        return standard::equal_in_any_case(table, name.front());
    };
    const auto found = std::find_if(tables_.begin(), tables_.end(), is_similar);
    if (found == tables_.end() || std::any_of(found + 1, tables_.end(), is_similar)) {
        return std::nullopt;
    }
    return standard::TableName{*found};
}

std::unique_ptr<standard::ProviderCursor> Connection::open_table(const standard::TableName& name) {
    if (name.size() != 1) {
        throw DataError(data_error_number::no_such_table,
                        "A table of a Jet database has a name of one part.",
                        layer);
    }
    return open(Request::open_table, name.front());
}

std::unique_ptr<standard::ProviderCursor> Connection::open_query(std::string_view sql) {
    return open(Request::open_query, sql);
}

std::unique_ptr<standard::ProviderCursor> Connection::open(Request kind, std::string_view text) {
    return std::make_unique<Cursor>(session_,
                                    session_->ask_and_wait(kind, with_text(text), Answer::columns));
}

standard::ProviderOutcome Connection::execute(std::string_view sql,
                                              std::span<const platform::Value> parameters) {
    if (!is_select(sql)) {
        refuse_to_write();
    }
    if (!parameters.empty()) {
        throw DataError(data_error_number::not_supported,
                        "A statement on a Jet database takes no parameters.",
                        layer);
    }
    standard::ProviderOutcome outcome;
    outcome.cursor = open_query(sql);
    return outcome;
}

void Connection::begin() {
    throw DataError(data_error_number::not_supported,
                    "A Jet database is only read; it has no transactions here.",
                    layer);
}

void Connection::commit() {
    begin();
}

void Connection::rollback() {
    begin();
}

} // namespace krv::providers::jet
