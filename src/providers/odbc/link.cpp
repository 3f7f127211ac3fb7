#include "providers/odbc/link.h"

#include "krv/standard/data_error.h"
#include "providers/odbc/driver_manager.h"

#include <chrono>
#include <future>
#include <thread>
#include <utility>

namespace krv::providers::odbc {

namespace {

/// For a driver that has noticed the timeout itself, and has more to say about it.
constexpr std::chrono::seconds grace{2};

} // namespace

Link::Link()
    : environment_(SQL_HANDLE_ENV, SQL_NULL_HANDLE) {
    environment_.check(SQLSetEnvAttr(environment_.get(),
                                     SQL_ATTR_ODBC_VERSION,
                                     reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3),
                                     0),
                       Phase::connecting);
    connection_ = ConnectionHandle(SQL_HANDLE_ENV, environment_.get());
}

Link::~Link() {
    if (is_connected_) {
        ignore(SQLDisconnect(connection_.get()));
    }
}

std::shared_ptr<Link> Link::connected(const OdbcSettings& settings) {
    auto link = std::make_shared<Link>();
    std::packaged_task<void()> connecting([link, settings] { link->connect(settings); });
    std::future<void> result = connecting.get_future();
    std::thread(std::move(connecting)).detach();
    const std::chrono::seconds timeout{settings.login_timeout_s};
    if (timeout.count() > 0 && result.wait_for(timeout + grace) != std::future_status::ready) {
        throw standard::DataError(standard::data_error_number::timeout,
                                  "The data source does not answer.",
                                  layer,
                                  0,
                                  "HYT00");
    }
    result.get();
    return link;
}

void Link::connect(const OdbcSettings& settings) {
    const SQLHANDLE connection = connection_.get();
    const std::string& text = settings.connection_string;
    const std::u16string wide = wide_text(text);
    // A driver that knows no timeout may say so.
    ignore(SQLSetConnectAttrW(connection,
                              SQL_ATTR_LOGIN_TIMEOUT,
                              reinterpret_cast<SQLPOINTER>(SQLULEN{settings.login_timeout_s}),
                              0));
    is_narrow_ = has_narrow_texts_only(settings.library);
    const SQLRETURN code = is_narrow_ ? SQLDriverConnect(connection,
                                                         nullptr,
                                                         as_sql(text),
                                                         static_cast<SQLSMALLINT>(text.size()),
                                                         nullptr,
                                                         0,
                                                         nullptr,
                                                         SQL_DRIVER_NOPROMPT)
                                      : SQLDriverConnectW(connection,
                                                          nullptr,
                                                          as_sql(wide),
                                                          static_cast<SQLSMALLINT>(wide.size()),
                                                          nullptr,
                                                          0,
                                                          nullptr,
                                                          SQL_DRIVER_NOPROMPT);
    check(code, Phase::connecting);
    is_connected_ = true;
}

} // namespace krv::providers::odbc
