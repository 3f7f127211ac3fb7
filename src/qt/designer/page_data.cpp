#include "qt/designer/page_data.h"

#include "krv/standard/ado.h"

#ifdef KRV_HAS_JET
#include "krv/providers/jet.h"
#endif
#ifdef KRV_HAS_ODBC
#include "krv/providers/odbc.h"
#endif
#ifdef KRV_HAS_SQLITE
#include "krv/providers/sqlite.h"
#endif

namespace krv::qt {

std::shared_ptr<platform::DataAccess> make_page_data() {
    standard::ProviderRegistry::Providers providers;
#ifdef KRV_HAS_SQLITE
    providers.sqlite = providers::make_sqlite_provider();
#endif
#ifdef KRV_HAS_JET
    providers.jet = providers::make_jet_provider();
#endif
#ifdef KRV_HAS_ODBC
    providers.odbc = providers::make_odbc_provider();
#endif
    return std::make_shared<standard::AdoDataAccess>(
        std::make_shared<const standard::ProviderRegistry>(std::move(providers)));
}

} // namespace krv::qt
