#pragma once

#include "providers/odbc/gate.h"
#include "providers/odbc/settings.h"

#include <memory>

namespace krv::providers::odbc {

/// The driver manager's side of an open connection.
class Link {
public:
    /// Connects, and gives up when the driver does not: not every one keeps to its timeout while
    /// a server says nothing. It is left to itself then.
    /// \throws DataError with the driver's text, -2147217871 when nobody answered
    static std::shared_ptr<Link> connected(const OdbcSettings& settings);

    Link();
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;
    ~Link();

    SQLHANDLE get() const noexcept { return connection_.get(); }

    void check(SQLRETURN code, Phase phase) const { connection_.check(code, phase); }

    /// Whether the driver takes texts in UTF-8, by the functions without wide texts.
    bool is_narrow() const noexcept { return is_narrow_; }

private:
    void connect(const OdbcSettings& settings);

    EnvironmentHandle environment_;
    ConnectionHandle connection_;
    bool is_narrow_ = false;
    bool is_connected_ = false;
};

} // namespace krv::providers::odbc
