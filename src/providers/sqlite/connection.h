#pragma once

#include "krv/standard/provider.h"
#include "providers/sqlite/database.h"

#include <memory>
#include <utility>

namespace krv::providers::sqlite {

class Connection final : public standard::ProviderConnection {
public:
    explicit Connection(std::shared_ptr<Database> database)
        : database_(std::move(database)) {}

    std::optional<standard::TableName> find_table(const standard::TableName& name) override;
    std::unique_ptr<standard::ProviderCursor> open_table(const standard::TableName& name) override;
    std::unique_ptr<standard::ProviderCursor> open_query(std::string_view sql) override;
    standard::ProviderOutcome execute(std::string_view sql,
                                      std::span<const platform::Value> parameters) override;

    bool in_transaction() const override;
    void begin() override;
    void commit() override;
    void rollback() override;

private:
    void run(std::string_view sql);

    std::shared_ptr<Database> database_;
};

} // namespace krv::providers::sqlite
