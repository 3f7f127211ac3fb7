#include "service.h"

#include "errors.h"
#include "krv/standard/data_error.h"
#include "query.h"
#include "table_reader.h"

#include <new>
#include <string>

namespace krv::jet_reader {

namespace {

namespace protocol = providers::jet::protocol;
using protocol::Answer;

} // namespace

void Service::run() {
    while (const auto request = channel_.receive()) {
        serve(*request);
    }
}

void Service::serve(const Channel::Request& request) {
    try {
        answer(request);
    } catch (const standard::DataError& error) {
        answer_error(error.number(), error.native_code(), error.what());
    } catch (const platform::RuntimeError& error) {
        answer_error(error.number(), 0, error.what());
    } catch (const std::bad_alloc&) {
        answer_error(standard::data_error_number::unspecified,
                     0,
                     "The reader of the database file has too little memory for that.");
    }
}

void Service::answer(const Channel::Request& request) {
    Reader reader(request.payload);
    switch (request.kind) {
    case protocol::Request::open:
        return open(reader.take_text());
    case protocol::Request::open_table:
        return open_cursor(
            std::make_unique<TableReader>(file(), file().table(std::string(reader.take_text()))));
    case protocol::Request::open_query:
        return open_cursor(
            std::make_unique<Query>(file(), reader.take_text(), [this] { channel_.pulse(); }));
    case protocol::Request::next_rows:
        return send_rows(reader.take<std::uint32_t>());
    case protocol::Request::close:
        cursors_.erase(reader.take<std::uint32_t>());
        return channel_.answer(Answer::closed, {});
    }
    throw providers::jet::BadFrame();
}

void Service::answer_error(std::int32_t number, std::int32_t native_code, std::string_view text) {
    payload_.clear();
    payload_.put(number);
    payload_.put(native_code);
    payload_.put_text(text);
    channel_.answer(Answer::error, payload_.bytes());
}

void Service::open(std::string_view password) {
    file_.emplace(bytes_, password);
    payload_.clear();
    payload_.put(protocol::version);
    payload_.put(static_cast<std::uint32_t>(file_->tables().size()));
    for (const std::string& table : file_->tables()) {
        payload_.put_text(table);
    }
    channel_.answer(Answer::opened, payload_.bytes());
}

void Service::open_cursor(std::unique_ptr<standard::ProviderCursor> rows) {
    payload_.clear();
    payload_.put(++last_cursor_);
    payload_.put(static_cast<std::uint32_t>(rows->columns().size()));
    for (const standard::ColumnInfo& column : rows->columns()) {
        payload_.put(column.type);
        payload_.put(column.defined_size);
        payload_.put_text(column.name);
    }
    cursors_[last_cursor_] = std::move(rows);
    channel_.answer(Answer::columns, payload_.bytes());
}

/// The cursor goes with its last row, and when it fails.
void Service::send_rows(std::uint32_t number) {
    auto cursor = cursors_.extract(number);
    if (cursor.empty()) {
        throw providers::jet::BadFrame();
    }
    standard::ProviderCursor& rows = *cursor.mapped();
    const std::size_t columns = rows.columns().size();
    payload_.clear();
    payload_.put(std::uint8_t{0});
    payload_.put(std::uint32_t{0});
    std::uint32_t count = 0;
    bool is_last = false;
    while (payload_.size() < protocol::block_size && count < protocol::largest_row_count) {
        is_last = !rows.step();
        if (is_last) {
            break;
        }
        for (std::size_t i = 0; i < columns; ++i) {
            payload_.put_value(rows.value(i));
        }
        ++count;
        if (payload_.size() > protocol::largest_payload) {
            refuse_damaged("a row is too long");
        }
    }
    payload_.put_at(0, static_cast<std::uint8_t>(is_last ? 1 : 0));
    payload_.put_at(sizeof(std::uint8_t), count);
    if (!is_last) {
        cursors_.insert(std::move(cursor));
    }
    channel_.answer(Answer::rows, payload_.bytes());
}

JetFile& Service::file() {
    if (!file_) {
        throw providers::jet::BadFrame();
    }
    return *file_;
}

} // namespace krv::jet_reader
