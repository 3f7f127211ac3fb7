#include "server/recorded_data.h"

#include <string>

namespace krv::server {

namespace {

namespace ado = platform::ado;

class RecordedRecordset final : public platform::Recordset {
public:
    explicit RecordedRecordset(std::shared_ptr<platform::Recordset> records)
        : records_(std::move(records)) {}

    void Open(std::string_view source,
              std::shared_ptr<platform::Connection> connection,
              std::int32_t cursor_type,
              std::int32_t lock_type,
              std::int32_t options) override {
        if (State() == ado::state_closed) {
            source_ = source;
            cursor_type_ = cursor_type;
            lock_type_ = lock_type;
        }
        records_->Open(source, std::move(connection), cursor_type, lock_type, options);
    }

    void Close() override { records_->Close(); }

    std::int32_t State() const override { return records_->State(); }

    bool Eof() const override { return records_->Eof(); }

    void MoveNext() override { records_->MoveNext(); }

    const platform::Fields& Fields() const override { return records_->Fields(); }

    std::string_view Source() const override { return source_; }

    std::int32_t CursorType() const override { return cursor_type_; }

    std::int32_t LockType() const override { return lock_type_; }

private:
    std::shared_ptr<platform::Recordset> records_;
    std::string source_;
    std::int32_t cursor_type_ = ado::cursor_forward_only;
    std::int32_t lock_type_ = ado::lock_read_only;
};

} // namespace

std::shared_ptr<platform::Recordset> RecordedData::CreateRecordset() {
    return std::make_shared<RecordedRecordset>(data_->CreateRecordset());
}

} // namespace krv::server
