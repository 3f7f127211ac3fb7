#pragma once

#include "krv/standard/provider.h"
#include "providers/odbc/session.h"

#include <memory>

namespace krv::providers::odbc {

class Connection final : public standard::ProviderConnection {
public:
    explicit Connection(std::shared_ptr<Session> session)
        : session_(std::move(session)) {}

    std::optional<standard::TableName> find_table(const standard::TableName& name) override;
    std::unique_ptr<standard::ProviderCursor> open_table(const standard::TableName& name) override;
    std::unique_ptr<standard::ProviderCursor> open_query(std::string_view sql) override;
    standard::ProviderOutcome execute(std::string_view sql,
                                      std::span<const platform::Value> parameters) override;

    bool in_transaction() const override { return session_->in_transaction(); }

    void begin() override { session_->begin(); }

    void commit() override { session_->end(SQL_COMMIT); }

    void rollback() override { session_->end(SQL_ROLLBACK); }

private:
    std::string quoted(const standard::TableName& name) const;
    std::unique_ptr<standard::ProviderCursor> open_to_read(std::string_view sql);
    standard::ProviderOutcome outcome_of(StatementHandle statement, bool reads);

    std::shared_ptr<Session> session_;
};

} // namespace krv::providers::odbc
