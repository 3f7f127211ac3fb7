#pragma once

#include "krv/platform/data_access.h"

#include <memory>
#include <utility>

namespace krv::server {

/// A data layer whose recordsets remember what they were asked for: an open one itself says only
/// what it got.
class RecordedData final : public platform::DataAccess {
public:
    explicit RecordedData(std::shared_ptr<platform::DataAccess> data)
        : data_(std::move(data)) {}

    std::shared_ptr<platform::Connection> CreateConnection() override {
        return data_->CreateConnection();
    }

    std::shared_ptr<platform::Recordset> CreateRecordset() override;

private:
    std::shared_ptr<platform::DataAccess> data_;
};

} // namespace krv::server
