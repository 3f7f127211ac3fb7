#pragma once

#include "krv/platform/data_access.h"
#include "krv/platform/error.h"

#include <memory>
#include <string>
#include <vector>

namespace krv::testing {

/// A data layer without a database: answers from a script and writes down every call, in order.
class ScriptedData final : public platform::DataAccess {
public:
    std::vector<std::string> trace;

    // What the next recordset holds.
    std::vector<std::string> field_names;
    /// Types and sizes of the fields; 12 and 0 for those without one.
    std::vector<std::int16_t> field_types;
    std::vector<std::int32_t> field_sizes;
    std::vector<std::vector<platform::Value>> records;

    bool connection_fails = false;
    bool source_fails = false;
    bool closing_fails = false;
    /// Number of the record on which `MoveNext` fails, -1 for none.
    std::int32_t broken_after = -1;

    std::shared_ptr<platform::Connection> CreateConnection() override;
    std::shared_ptr<platform::Recordset> CreateRecordset() override;

private:
    class ScriptedConnection;
    class ScriptedField;
    class ScriptedRecordset;
};

class ScriptedData::ScriptedConnection final : public platform::Connection {
public:
    explicit ScriptedConnection(ScriptedData& data)
        : data_(data) {}

    void Open(std::string_view connection_string,
              std::string_view user_id,
              std::string_view password,
              std::int32_t options) override {
        data_.trace.push_back("Connection.Open(" + std::string(connection_string) + "|" +
                              std::string(user_id) + "|" + std::string(password) + "|" +
                              std::to_string(options) + ")");
        if (data_.connection_fails) {
            throw platform::RuntimeError(-2147467259, "no database", "script");
        }
        open_ = true;
    }

    void Close() override {
        data_.trace.push_back("Connection.Close");
        if (!open_ || data_.closing_fails) {
            throw platform::RuntimeError(3704, "not open", "script");
        }
        open_ = false;
    }

    std::int32_t State() const override { return open_ ? 1 : 0; }

    platform::ExecuteResult Execute(std::string_view, std::span<const platform::Value>) override {
        throw platform::RuntimeError(3251, "not in the script", "script");
    }

    void BeginTrans() override {}

    void CommitTrans() override {}

    void RollbackTrans() override {}

private:
    ScriptedData& data_;
    bool open_ = false;
};

class ScriptedData::ScriptedField final : public platform::Field {
public:
    ScriptedField(std::string name,
                  const std::size_t& record,
                  ScriptedData& data,
                  std::size_t column)
        : name_(std::move(name))
        , record_(record)
        , data_(data)
        , column_(column) {}

    std::string_view Name() const override { return name_; }

    std::int16_t Type() const override {
        return column_ < data_.field_types.size() ? data_.field_types[column_] : std::int16_t{12};
    }

    std::int32_t DefinedSize() const override {
        return column_ < data_.field_sizes.size() ? data_.field_sizes[column_] : 0;
    }

    platform::ValueView Value() const override { return data_.records[record_][column_].view(); }

private:
    std::string name_;
    const std::size_t& record_;
    ScriptedData& data_;
    std::size_t column_;
};

class ScriptedData::ScriptedRecordset final : public platform::Recordset, private platform::Fields {
public:
    explicit ScriptedRecordset(ScriptedData& data)
        : data_(data) {}

    void Open(std::string_view source,
              std::shared_ptr<platform::Connection> connection,
              std::int32_t cursor_type,
              std::int32_t lock_type,
              std::int32_t options) override {
        data_.trace.push_back("Recordset.Open(" + std::string(source) + "|" +
                              (connection->State() == 1 ? "open" : "closed") + "|" +
                              std::to_string(cursor_type) + "|" + std::to_string(lock_type) + "|" +
                              std::to_string(options) + ")");
        if (data_.source_fails) {
            throw platform::RuntimeError(-2147217865, "no such table", "script");
        }
        source_ = source;
        lock_type_ = lock_type;
        open_ = true;
        record_ = 0;
        for (std::size_t i = 0; i < data_.field_names.size(); ++i) {
            fields_.push_back(
                std::make_unique<ScriptedField>(data_.field_names[i], record_, data_, i));
        }
    }

    void Close() override {
        data_.trace.push_back("Recordset.Close");
        if (!open_ || data_.closing_fails) {
            throw platform::RuntimeError(3704, "not open", "script");
        }
        open_ = false;
    }

    std::int32_t State() const override { return open_ ? 1 : 0; }

    bool Eof() const override { return record_ >= data_.records.size(); }

    void MoveNext() override {
        if (static_cast<std::int32_t>(record_) == data_.broken_after) {
            throw platform::RuntimeError(-2147467259, "connection lost", "script");
        }
        ++record_;
    }

    const platform::Fields& Fields() const override { return *this; }

    std::string_view Source() const override { return source_; }

    std::int32_t CursorType() const override { return 0; }

    std::int32_t LockType() const override { return lock_type_; }

private:
    std::int32_t Count() const override { return static_cast<std::int32_t>(fields_.size()); }

    const platform::Field& Item(std::string_view name) const override {
        for (const auto& field : fields_) {
            if (field->Name() == name) {
                return *field;
            }
        }
        throw platform::RuntimeError(3265, "no such field", "script");
    }

    const platform::Field& Item(std::int32_t index) const override {
        return *fields_.at(static_cast<std::size_t>(index));
    }

    ScriptedData& data_;
    std::vector<std::unique_ptr<ScriptedField>> fields_;
    std::string source_;
    std::int32_t lock_type_ = 0;
    std::size_t record_ = 0;
    bool open_ = false;
};

inline std::shared_ptr<platform::Connection> ScriptedData::CreateConnection() {
    trace.push_back("CreateConnection");
    return std::make_shared<ScriptedConnection>(*this);
}

inline std::shared_ptr<platform::Recordset> ScriptedData::CreateRecordset() {
    trace.push_back("CreateRecordset");
    return std::make_shared<ScriptedRecordset>(*this);
}

} // namespace krv::testing
