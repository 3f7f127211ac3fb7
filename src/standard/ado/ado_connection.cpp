#include "standard/ado/ado_connection.h"

#include "standard/ado/ado_errors.h"
#include "standard/ado/ado_recordset.h"

namespace krv::standard {

namespace {

constexpr std::int32_t connect_asynchronously = 16;

void require_connect_option(std::int32_t options) {
    if (options == connect_asynchronously) {
        raise(data_error_number::not_supported, connection_layer);
    }
    if (options != platform::ado::unspecified) {
        raise(data_error_number::wrong_arguments, connection_layer);
    }
}

} // namespace

void AdoConnection::Open(std::string_view connection_string,
                         std::string_view user_id,
                         std::string_view password,
                         std::int32_t options) {
    if (provider_) {
        raise(data_error_number::object_open, connection_layer);
    }
    require_connect_option(options);
    settings_ = ConnectionString::parse(connection_string);
    settings_.set_login(user_id, password);
    provider_ = guarded([&] { return registry_->open(settings_); });
}

void AdoConnection::Close() {
    require_open();
    const auto self = shared_from_this(); // a recordset may hold the last other reference
    while (!recordsets_.empty()) {
        recordsets_.back()->Close();
    }
    provider_.reset();
}

std::int32_t AdoConnection::State() const {
    return provider_ ? platform::ado::state_open : platform::ado::state_closed;
}

platform::ExecuteResult AdoConnection::Execute(std::string_view sql,
                                               std::span<const platform::Value> parameters) {
    ProviderConnection& provider = require_open();
    ProviderOutcome outcome = guarded([&] { return provider.execute(sql, parameters); });
    platform::ExecuteResult result{outcome.affected, nullptr};
    if (outcome.cursor) {
        auto recordset = std::make_shared<AdoRecordset>();
        recordset->open_on(shared_from_this(), std::move(outcome.cursor), sql);
        result.records = std::move(recordset);
    }
    return result;
}

void AdoConnection::BeginTrans() {
    ProviderConnection& provider = require_open();
    if (provider.in_transaction()) {
        raise(data_error_number::not_supported, connection_layer);
    }
    guarded([&] { provider.begin(); });
}

void AdoConnection::CommitTrans() {
    ProviderConnection& provider = require_open();
    if (!provider.in_transaction()) {
        raise(data_error_number::not_supported, connection_layer);
    }
    guarded([&] { provider.commit(); });
}

void AdoConnection::RollbackTrans() {
    ProviderConnection& provider = require_open();
    if (!provider.in_transaction()) {
        raise(data_error_number::not_supported, connection_layer);
    }
    guarded([&] { provider.rollback(); });
}

void AdoConnection::raise_without_secrets() const {
    try {
        throw;
    } catch (const DataError& error) {
        throw DataError(error.number(),
                        settings_.without_secrets(error.description()),
                        error.source(),
                        error.native_code(),
                        error.sql_state());
    } catch (const platform::RuntimeError& error) {
        throw platform::RuntimeError(
            error.number(), settings_.without_secrets(error.description()), error.source());
    }
}

ProviderConnection& AdoConnection::require_open() const {
    if (!provider_) {
        raise(data_error_number::object_closed, connection_layer);
    }
    return *provider_;
}

} // namespace krv::standard
