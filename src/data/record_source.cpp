#include "data/record_source.h"

#include "control/control_state.h"

#include <algorithm>
#include <string_view>

namespace krv::data {

namespace {

char ascii_upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool names_access(std::string_view connect) {
    constexpr std::string_view access = "ACCESS";
    return connect.size() >= access.size() &&
           std::equal(access.begin(), access.end(), connect.begin(), [](char a, char c) {
               return a == ascii_upper(c);
           });
}

/// Runs one step of an opening or closing. Every failure, whatever its kind, only says that it
/// failed: the user gets a fixed text, the host no error.
template <class Step>
bool succeeds(Step step) noexcept {
    try {
        step();
        return true;
    } catch (...) {
        return false;
    }
}

} // namespace

RecordSource::RecordSource(ControlState& state)
    : state_(state) {}

void RecordSource::CloseAll() noexcept {
    // Held here while they close: a host's recordset may call the control back in that.
    if (const auto closing = recordset) {
        succeeds([&] { closing->Close(); });
    }
    recordset.reset();
    if (const auto closing = connection_) {
        succeeds([&] { closing->Close(); });
    }
    connection_.reset();
}

Opening RecordSource::open() {
    CloseAll();
    if (Recordsource.empty()) {
        return Opening::nothing_to_open;
    }
    if (!settle_connection_string()) {
        return refuse("Nome Database (Jet 4.0) non specificato");
    }
    connection_ = state_.host.data_access.CreateConnection();
    recordset = state_.host.data_access.CreateRecordset();
    using namespace platform::ado;
    if (!succeeds([this] { connection_->Open(Connect, "", "", unspecified); })) {
        return refuse("Errore nella stringa di connessione al database");
    }
    const std::int32_t lock = ReadOnlyRecordset ? lock_read_only : lock_pessimistic;
    if (!succeeds([this, lock] {
            recordset->Open(Recordsource, connection_, cursor_dynamic, lock, unspecified);
        })) {
        return refuse("Errore in RecordSource");
    }
    return Opening::opened;
}

/// \return false when neither a connection string nor a database is named
bool RecordSource::settle_connection_string() {
    if (!Connect.empty() && !names_access(Connect)) {
        return true;
    }
    if (DataBaseName.empty()) {
        return false;
    }
    // The member itself, not the property: a load must not mark the host's form as changed.
    Connect = "Provider= Microsoft.Jet.OLEDB.4.0; Data Source=" + DataBaseName + ";";
    return true;
}

Opening RecordSource::refuse(const char* message) {
    state_.host.application.MsgBox(message, platform::MessageButtons::ok);
    return Opening::refused;
}

} // namespace krv::data
