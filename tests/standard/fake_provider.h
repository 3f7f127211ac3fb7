#pragma once

#include "krv/platform/data_access.h"
#include "krv/standard/data_error.h"
#include "krv/standard/provider.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace krv::testing {

/// What a fake engine holds, and what it was asked for, in order.
struct FakeEngine {
    std::vector<standard::ColumnInfo> columns{{"id", 3, 4}, {"Nome", 202, 50}};
    std::vector<std::vector<platform::Value>> rows;
    std::vector<standard::TableName> tables;
    std::vector<std::string> trace;
    std::string driver_text = "driver broke";
    int fail_at_row = -1; ///< the step to this row fails; rows count from 0
    bool fail_open = false;
    bool fail_value = false; ///< every value of a row
    bool fail_source = false;
    bool yields_rows = false; ///< of `execute`
    int open_connections = 0;
    int open_cursors = 0;

    [[noreturn]] void fail(std::int32_t number) const {
        throw standard::DataError(number, driver_text, "Fake", 77, "HY000");
    }
};

class FakeCursor final : public standard::ProviderCursor {
public:
    explicit FakeCursor(FakeEngine& engine)
        : engine_(engine) {
        ++engine_.open_cursors;
    }

    ~FakeCursor() override { release(); }

    bool step() override {
        ++row_;
        engine_.trace.push_back("step " + std::to_string(row_));
        if (row_ == engine_.fail_at_row) {
            engine_.fail(standard::data_error_number::unspecified);
        }
        return row_ < static_cast<int>(engine_.rows.size());
    }

    std::span<const standard::ColumnInfo> columns() const override { return engine_.columns; }

    platform::ValueView value(std::size_t column) override {
        if (engine_.fail_value) {
            engine_.fail(standard::data_error_number::unspecified);
        }
        return engine_.rows[static_cast<std::size_t>(row_)][column].view();
    }

    void release() noexcept override {
        if (!released_) {
            released_ = true;
            --engine_.open_cursors;
            engine_.trace.emplace_back("release");
        }
    }

private:
    FakeEngine& engine_;
    int row_ = -1;
    bool released_ = false;
};

class FakeConnection final : public standard::ProviderConnection {
public:
    explicit FakeConnection(FakeEngine& engine)
        : engine_(engine) {
        ++engine_.open_connections;
    }

    ~FakeConnection() override { --engine_.open_connections; }

    std::optional<standard::TableName> find_table(const standard::TableName& name) override {
        engine_.trace.push_back("find " + joined(name));
        for (const auto& table : engine_.tables) {
            if (table == name) {
                return table;
            }
        }
        return std::nullopt;
    }

    std::unique_ptr<standard::ProviderCursor> open_table(const standard::TableName& name) override {
        engine_.trace.push_back("table " + joined(name));
        return open();
    }

    std::unique_ptr<standard::ProviderCursor> open_query(std::string_view sql) override {
        engine_.trace.push_back("query " + std::string(sql));
        return open();
    }

    standard::ProviderOutcome execute(std::string_view sql,
                                      std::span<const platform::Value> parameters) override {
        engine_.trace.push_back("execute " + std::string(sql) + " " +
                                std::to_string(parameters.size()));
        if (engine_.fail_source) {
            engine_.fail(standard::data_error_number::bad_statement);
        }
        return {7, engine_.yields_rows ? open() : nullptr};
    }

    bool in_transaction() const override { return in_transaction_; }

    void begin() override { change("begin", true); }

    void commit() override { change("commit", false); }

    void rollback() override { change("rollback", false); }

private:
    static std::string joined(const standard::TableName& name) {
        std::string result;
        for (const auto& part : name) {
            result += "<" + part + ">";
        }
        return result;
    }

    std::unique_ptr<standard::ProviderCursor> open() {
        if (engine_.fail_source) {
            engine_.fail(standard::data_error_number::bad_statement);
        }
        return std::make_unique<FakeCursor>(engine_);
    }

    void change(const char* what, bool in_transaction) {
        engine_.trace.emplace_back(what);
        in_transaction_ = in_transaction;
    }

    FakeEngine& engine_;
    bool in_transaction_ = false;
};

class FakeProvider final : public standard::Provider {
public:
    explicit FakeProvider(FakeEngine& engine)
        : engine_(engine) {}

    std::unique_ptr<standard::ProviderConnection>
    open(const standard::ConnectionString& settings) override {
        std::string asked = "open";
        for (const auto& pair : settings.pairs()) {
            asked += " " + pair.keyword + "=" + pair.value;
        }
        engine_.trace.push_back(asked);
        if (engine_.fail_open) {
            engine_.fail(standard::data_error_number::login_refused);
        }
        return std::make_unique<FakeConnection>(engine_);
    }

private:
    FakeEngine& engine_;
};

} // namespace krv::testing
