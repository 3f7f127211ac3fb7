#pragma once

#include "krv/platform/data_access.h"
#include "standard/ado/ado_fields.h"

#include <memory>
#include <string>

namespace krv::standard {

class AdoConnection;

/// The records of a provider's cursor.
class AdoRecordset final : public platform::Recordset {
public:
    AdoRecordset() = default;
    AdoRecordset(const AdoRecordset&) = delete;
    AdoRecordset& operator=(const AdoRecordset&) = delete;
    ~AdoRecordset() override;

    void Open(std::string_view source,
              std::shared_ptr<platform::Connection> connection,
              std::int32_t cursor_type,
              std::int32_t lock_type,
              std::int32_t options) override;
    void Close() override;
    std::int32_t State() const override;
    bool Eof() const override;
    void MoveNext() override;

    const platform::Fields& Fields() const override { return fields_; }

    std::string_view Source() const override { return source_; }

    std::int32_t CursorType() const override { return cursor_type_; }

    std::int32_t LockType() const override { return lock_type_; }

    /// Takes a cursor that stands before its first row and goes there; this recordset is closed.
    void open_on(std::shared_ptr<AdoConnection> connection,
                 std::unique_ptr<ProviderCursor> cursor,
                 std::string_view source);

private:
    enum class Position {
        closed,
        on_record,
        at_end,
        lost ///< the engine failed: not the end, but nothing more can be read
    };

    void step();
    void stand(Position position) noexcept;
    void let_go() noexcept;

    std::string source_;
    std::int32_t cursor_type_ = platform::ado::cursor_forward_only;
    std::int32_t lock_type_ = platform::ado::lock_read_only;
    Position position_ = Position::closed;
    // The connection outlives the cursor: members go in the opposite order.
    std::shared_ptr<AdoConnection> connection_;
    std::unique_ptr<ProviderCursor> cursor_;
    CurrentRow row_;
    AdoFields fields_;
};

} // namespace krv::standard
