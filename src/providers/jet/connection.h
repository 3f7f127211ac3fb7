#pragma once

#include "krv/standard/provider.h"
#include "providers/jet/protocol.h"
#include "providers/jet/reader_session.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace krv::providers::jet {

class Connection final : public standard::ProviderConnection {
public:
    /// Has the reader open the file.
    Connection(std::shared_ptr<ReaderSession> session, std::string_view password);

    std::optional<standard::TableName> find_table(const standard::TableName& name) override;
    std::unique_ptr<standard::ProviderCursor> open_table(const standard::TableName& name) override;
    std::unique_ptr<standard::ProviderCursor> open_query(std::string_view sql) override;
    standard::ProviderOutcome execute(std::string_view sql,
                                      std::span<const platform::Value> parameters) override;

    bool in_transaction() const override { return false; }

    void begin() override;
    void commit() override;
    void rollback() override;

private:
    void read_tables(FrameReader reader);
    std::unique_ptr<standard::ProviderCursor> open(protocol::Request kind, std::string_view text);

    std::shared_ptr<ReaderSession> session_;
    std::vector<std::string> tables_; ///< linked ones among them
};

} // namespace krv::providers::jet
