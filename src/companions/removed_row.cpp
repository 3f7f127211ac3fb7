#include "companions/removed_row.h"

namespace krv::companions {

RemovedRow::RemovedRow(const KarvoList& list, std::int32_t row)
    : row_(row)
    , rows_(list.Rows())
    , texts_(texts_of(list, row)) {
    if (row_ + 1 < rows_) {
        next_ = texts_of(list, row_ + 1);
    }
}

bool RemovedRow::is_gone_from(const KarvoList& list) const {
    if (list.Rows() != rows_ - 1) {
        return false;
    }
    return row_ == list.Rows() || texts_of(list, row_) == next_;
}

// The face of the list has no way to insert a row, so the texts below move down one by one.
void RemovedRow::put_back(KarvoList& list, const platform::LifeWatch& watch) const {
    list.SetRows(list.Rows() + 1);
    if (watch.ended()) {
        return;
    }
    for (std::int32_t row = list.Rows() - 1; row > row_; --row) {
        write(list, row, texts_of(list, row - 1));
    }
    write(list, row_, texts_);
    if (list.Row() != row_) {
        list.SetRow(row_);
    }
}

RemovedRow::Texts RemovedRow::texts_of(const KarvoList& list, std::int32_t row) {
    Texts texts;
    for (std::int32_t col = 0; col < list.Cols(); ++col) {
        texts.push_back(list.TextMatrix(row, col));
    }
    return texts;
}

void RemovedRow::write(KarvoList& list, std::int32_t row, const Texts& texts) {
    const auto cols = static_cast<std::int32_t>(texts.size());
    for (std::int32_t col = 0; col < cols && col < list.Cols(); ++col) {
        list.SetTextMatrix(row, col, texts[static_cast<std::size_t>(col)]);
    }
}

} // namespace krv::companions
