#include "server/data_values.h"
#include "server/methods.h"

#include "krv/platform/data_access.h"

#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace krv::server {

namespace {

namespace ado = platform::ado;

std::shared_ptr<platform::Connection> connection_to(ServerState& state,
                                                    const std::string& connect) {
    auto connection = state.data->CreateConnection();
    connection->Open(connect, {}, {}, ado::unspecified);
    return connection;
}

Json open(ServerState& state, const Params& params) {
    const std::string& connect = params.text("connect");
    const std::string& source = params.text("source");
    const std::int32_t cursor = params.long_integer("cursor");
    const std::int32_t lock = params.long_integer("lock");
    const auto recordset = state.data->CreateRecordset();
    recordset->Open(source, connection_to(state, connect), cursor, lock, ado::unspecified);
    return {{"object", state.objects.name_of(recordset)}};
}

bool is_at_end(const platform::Recordset& recordset) {
    return recordset.State() == ado::state_closed || recordset.Eof();
}

Json describe_fields(const platform::Recordset& recordset, const platform::Formatter& formatter) {
    const platform::Fields& fields = recordset.Fields();
    const bool has_record = !is_at_end(recordset);
    Json list = Json::array();
    for (std::int32_t i = 0; i < fields.Count(); ++i) {
        const platform::Field& field = fields.Item(i);
        list.push_back({{"Name", std::string(field.Name())},
                        {"Type", field.Type()},
                        {"DefinedSize", field.DefinedSize()},
                        {"Value", has_record ? json_of_data(field.Value(), formatter) : Json()}});
    }
    return list;
}

Json describe_state(ServerState& state, const Params& params) {
    const auto recordset = state.objects.recordset(params.text("object"));
    Json result = {{"State", recordset->State()},
                   {"EOF", is_at_end(*recordset)},
                   {"Source", std::string(recordset->Source())},
                   {"CursorType", recordset->CursorType()},
                   {"LockType", recordset->LockType()}};
    if (recordset->State() != ado::state_closed) {
        result["Fields"] = describe_fields(*recordset, *state.formatter);
    }
    return result;
}

Json row_of(const platform::Fields& fields, const platform::Formatter& formatter) {
    Json row = Json::array();
    for (std::int32_t i = 0; i < fields.Count(); ++i) {
        row.push_back(json_of_data(fields.Item(i).Value(), formatter));
    }
    return row;
}

Json next_rows(platform::Recordset& recordset,
               std::int32_t most,
               const platform::Formatter& formatter) {
    Json rows = Json::array();
    for (std::int32_t i = 0; i < most && !is_at_end(recordset); ++i) {
        rows.push_back(row_of(recordset.Fields(), formatter));
        recordset.MoveNext();
    }
    return rows;
}

Json read(ServerState& state, const Params& params) {
    const auto recordset = state.objects.recordset(params.text("object"));
    const std::int32_t most = params.long_integer("max");
    Json rows = next_rows(*recordset, most, *state.formatter);
    return {{"rows", std::move(rows)}, {"EOF", is_at_end(*recordset)}};
}

Json execute(ServerState& state, const Params& params) {
    const std::string& connect = params.text("connect");
    const std::string& sql = params.text("sql");
    const std::vector<platform::Value> values = data_values_of(params.array("params"));
    const auto connection = connection_to(state, connect);
    const platform::ExecuteResult outcome = connection->Execute(sql, values);
    Json rows = Json::array();
    if (outcome.records) {
        constexpr std::int32_t all = std::numeric_limits<std::int32_t>::max();
        rows = next_rows(*outcome.records, all, *state.formatter);
    }
    return {{"affected", outcome.affected}, {"rows", std::move(rows)}};
}

constexpr Method methods[] = {{"data.open", open},
                              {"data.state", describe_state},
                              {"data.read", read},
                              {"data.execute", execute}};

} // namespace

std::span<const Method> data_methods() {
    return methods;
}

} // namespace krv::server
