#include "providers/odbc/cursor.h"

#include "providers/odbc/column_value.h"

#include <utility>

namespace krv::providers::odbc {

Cursor::Cursor(std::shared_ptr<Session> session, StatementHandle statement)
    : session_(std::move(session))
    , statement_(std::move(statement)) {
    block_.emplace(statement_, session_->traits());
    columns_.assign(block_->columns().begin(), block_->columns().end());
    cells_.resize(columns_.size());
    session_->set_active(this);
}

Cursor::~Cursor() {
    release();
}

bool Cursor::step() {
    ++row_;
    if (block_) {
        return block_->step();
    }
    current_ahead_ = next_ahead_ < ahead_.size() ? &ahead_[next_ahead_++] : nullptr;
    return current_ahead_ != nullptr;
}

platform::ValueView Cursor::value(std::size_t column) {
    if (current_ahead_ != nullptr) {
        return (*current_ahead_)[column].view();
    }
    Cell& cell = cells_[column];
    if (cell.row != row_) {
        cell.value = convert(column, cell.storage);
        cell.row = row_;
    }
    return cell.value;
}

platform::ValueView Cursor::convert(std::size_t column, std::string& storage) {
    return column_value(block_->cell(column), block_->form(column), columns_[column].type, storage);
}

void Cursor::read_ahead() {
    if (!block_) {
        return;
    }
    for (std::size_t i = 0; row_ > 0 && i < columns_.size(); ++i) {
        value(i);
    }
    std::string storage;
    while (block_->step()) {
        Row& row = ahead_.emplace_back();
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            row.emplace_back(convert(i, storage));
        }
    }
    release();
}

void Cursor::release() noexcept {
    block_.reset();
    statement_.reset();
    if (session_->active() == this) {
        session_->set_active(nullptr);
        session_->end_reading();
    }
}

} // namespace krv::providers::odbc
