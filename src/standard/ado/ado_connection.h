#pragma once

#include "krv/platform/data_access.h"
#include "krv/standard/provider_registry.h"

#include <memory>
#include <utility>
#include <vector>

namespace krv::standard {

class AdoRecordset;

/// A connection over a provider's. Always held by a shared pointer: its recordsets hold it too.
class AdoConnection final : public platform::Connection,
                            public std::enable_shared_from_this<AdoConnection> {
public:
    explicit AdoConnection(std::shared_ptr<const ProviderRegistry> registry)
        : registry_(std::move(registry)) {}

    void Open(std::string_view connection_string,
              std::string_view user_id,
              std::string_view password,
              std::int32_t options) override;
    void Close() override;
    std::int32_t State() const override;
    platform::ExecuteResult Execute(std::string_view sql,
                                    std::span<const platform::Value> parameters) override;
    void BeginTrans() override;
    void CommitTrans() override;
    void RollbackTrans() override;

    /// For the recordsets. Null while closed.
    ProviderConnection* provider() const noexcept { return provider_.get(); }

    void attach(AdoRecordset& recordset) { recordsets_.push_back(&recordset); }

    void detach(AdoRecordset& recordset) noexcept { std::erase(recordsets_, &recordset); }

    /// Runs a call into the provider; an error comes out with the connection's secrets taken out
    /// of its text, for drivers quote connection strings.
    template <typename Call>
    decltype(auto) guarded(Call&& call) const;

private:
    [[noreturn]] void raise_without_secrets() const;
    ProviderConnection& require_open() const;

    std::shared_ptr<const ProviderRegistry> registry_;
    ConnectionString settings_;
    std::unique_ptr<ProviderConnection> provider_;
    std::vector<AdoRecordset*> recordsets_;
};

template <typename Call>
decltype(auto) AdoConnection::guarded(Call&& call) const {
    try {
        return std::forward<Call>(call)();
    } catch (const platform::RuntimeError&) {
        raise_without_secrets();
    }
}

} // namespace krv::standard
