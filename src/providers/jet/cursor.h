#pragma once

#include "krv/standard/provider.h"
#include "providers/jet/reader_session.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace krv::providers::jet {

/// Rows that the reader sends in blocks. While one is read here, the reader makes the next.
class Cursor final : public standard::ProviderCursor {
public:
    /// \param columns  the reader's answer to the opening
    Cursor(std::shared_ptr<ReaderSession> session, const Payload& columns);
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;

    ~Cursor() override { release(); }

    bool step() override;

    std::span<const standard::ColumnInfo> columns() const override { return columns_; }

    platform::ValueView value(std::size_t column) override { return row_[column]; }

    void release() noexcept override;

private:
    void read_columns(FrameReader reader);
    void ask_for_rows();
    void take_block();
    void give_back() noexcept;

    std::shared_ptr<ReaderSession> session_;
    std::uint32_t cursor_ = 0;
    std::vector<standard::ColumnInfo> columns_;
    std::optional<std::uint32_t> request_; ///< for the block that follows
    bool is_last_ = false;                 ///< no block follows, and the reader's cursor is gone
    Payload block_;
    FrameReader reader_; ///< in the block, behind the current row
    std::uint32_t rows_left_ = 0;
    std::vector<platform::ValueView> row_;
};

} // namespace krv::providers::jet
