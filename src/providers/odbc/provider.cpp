#include "krv/providers/odbc.h"

#include "providers/odbc/connection.h"
#include "providers/odbc/settings.h"

namespace krv::providers {

namespace {

class OdbcProvider final : public standard::Provider {
public:
    std::unique_ptr<standard::ProviderConnection>
    open(const standard::ConnectionString& settings) override {
        return std::make_unique<odbc::Connection>(
            std::make_shared<odbc::Session>(odbc::odbc_settings(settings)));
    }
};

} // namespace

std::shared_ptr<standard::Provider> make_odbc_provider() {
    return std::make_shared<OdbcProvider>();
}

} // namespace krv::providers
