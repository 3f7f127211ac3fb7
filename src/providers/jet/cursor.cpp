#include "providers/jet/cursor.h"

#include <utility>

namespace krv::providers::jet {

using protocol::Answer;
using protocol::Request;

Cursor::Cursor(std::shared_ptr<ReaderSession> session, const Payload& columns)
    : session_(std::move(session)) {
    try {
        read_columns(FrameReader(columns.bytes()));
    } catch (const BadFrame&) {
        session_->refuse();
    }
    ask_for_rows();
}

void Cursor::read_columns(FrameReader reader) {
    cursor_ = reader.take<std::uint32_t>();
    for (auto count = reader.take<std::uint32_t>(); count > 0; --count) {
        standard::ColumnInfo& column = columns_.emplace_back();
        column.type = reader.take<std::int16_t>();
        column.defined_size = reader.take<std::int32_t>();
        column.name = reader.take_text();
    }
    reader.require_end();
    row_.resize(columns_.size());
}

void Cursor::ask_for_rows() {
    FrameWriter payload;
    payload.put(cursor_);
    request_ = session_->ask(Request::next_rows, payload);
}

void Cursor::take_block() {
    block_ = session_->answer(*std::exchange(request_, std::nullopt), Answer::rows);
    reader_ = FrameReader(block_.bytes());
    is_last_ = reader_.take<std::uint8_t>() != 0;
    rows_left_ = reader_.take<std::uint32_t>();
    if (rows_left_ == 0 && (!is_last_ || reader_.left() > 0)) {
        throw BadFrame();
    }
    if (!is_last_) {
        ask_for_rows();
    }
}

bool Cursor::step() {
    try {
        if (rows_left_ == 0) {
            if (!request_) {
                return false;
            }
            take_block();
            if (rows_left_ == 0) {
                return false;
            }
        }
        for (platform::ValueView& value : row_) {
            value = reader_.take_value();
        }
        if (--rows_left_ == 0) {
            reader_.require_end();
        }
        return true;
    } catch (const BadFrame&) {
        session_->refuse();
    }
}

void Cursor::release() noexcept {
    if (session_ && !is_last_) {
        give_back();
    }
    is_last_ = true;
    rows_left_ = 0;
    session_.reset();
    block_ = {};
}

/// A reader that is gone already has nothing to take back.
void Cursor::give_back() noexcept {
    try {
        if (request_) {
            session_->forget(*std::exchange(request_, std::nullopt));
        }
        FrameWriter payload;
        payload.put(cursor_);
        session_->forget(session_->ask(Request::close, payload));
    } catch (const std::exception&) {
        request_.reset();
    }
}

} // namespace krv::providers::jet
