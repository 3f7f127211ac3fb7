#include "krv/standard/ado.h"

#include "standard/ado/ado_connection.h"
#include "standard/ado/ado_recordset.h"

namespace krv::standard {

AdoDataAccess::AdoDataAccess(std::shared_ptr<const ProviderRegistry> registry)
    : registry_(std::move(registry)) {}

std::shared_ptr<platform::Connection> AdoDataAccess::CreateConnection() {
    return std::make_shared<AdoConnection>(registry_);
}

std::shared_ptr<platform::Recordset> AdoDataAccess::CreateRecordset() {
    return std::make_shared<AdoRecordset>();
}

} // namespace krv::standard
