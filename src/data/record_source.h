#pragma once

#include "krv/platform/data_access.h"

#include <memory>
#include <string>

namespace krv {

struct ControlState;

namespace data {

/// How an opening ended.
enum class Opening {
    opened,          ///< the recordset stands on its first record, or at its end
    nothing_to_open, ///< no `Recordsource`: nothing is open
    refused          ///< a message told the user why; the host may have destroyed the control in it
};

/// The four data properties and the connection and recordset behind them.
class RecordSource {
public:
    explicit RecordSource(ControlState& state);

    std::string Connect;
    std::string DataBaseName;
    std::string Recordsource;
    bool ReadOnlyRecordset = false;

    /// The control's own recordset or the host's, open or not; null when there is none.
    std::shared_ptr<platform::Recordset> recordset;

    /// Closes and releases recordset and connection, the host's recordset included. Never fails.
    void CloseAll() noexcept;

    /// Closes what is open and opens `Recordsource` again. Failures are shown to the user and are
    /// no errors; a failed connection or recordset stays held, unopened, until the next `CloseAll`.
    /// \throws what the data layer raises while it makes the two objects
    Opening open();

private:
    bool settle_connection_string();
    Opening refuse(const char* message);

    ControlState& state_;
    std::shared_ptr<platform::Connection> connection_;
};

} // namespace data

} // namespace krv
