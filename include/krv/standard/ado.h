#pragma once

#include "krv/platform/data_access.h"
#include "krv/standard/provider_registry.h"

#include <memory>

namespace krv::standard {

/// Connections and recordsets over the registered providers.
///
/// Objects may be released in any order: a recordset keeps its connection, a connection its
/// registry. Not for use by several threads at once. Errors are `DataError`, whose source names the
/// layer: "ADODB.Connection", "ADODB.Recordset", "ADODB.Fields", or the provider.
class AdoDataAccess final : public platform::DataAccess {
public:
    explicit AdoDataAccess(std::shared_ptr<const ProviderRegistry> registry);

    std::shared_ptr<platform::Connection> CreateConnection() override;
    std::shared_ptr<platform::Recordset> CreateRecordset() override;

private:
    std::shared_ptr<const ProviderRegistry> registry_;
};

} // namespace krv::standard
