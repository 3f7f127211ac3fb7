#include "standard/ado/ado_recordset.h"

#include "standard/ado/ado_connection.h"
#include "standard/ado/ado_errors.h"
#include "standard/ado/source_opening.h"

#include <utility>

namespace krv::standard {

namespace {

namespace ado = platform::ado;

constexpr std::int32_t option_flags = 0xF0; // asynchronous runs, no records wanted
constexpr std::int32_t stored_procedure = 4;
constexpr std::int32_t saved_file = 256;

bool is_cursor_type(std::int32_t type) {
    return type >= ado::unspecified && type <= ado::cursor_static;
}

bool is_lock_type(std::int32_t type) {
    return type == ado::unspecified ||
           (type >= ado::lock_read_only && type <= ado::lock_batch_optimistic);
}

SourceKind source_kind(std::int32_t options) {
    const std::int32_t flags = options > 0 ? options & option_flags : 0;
    switch (options - flags) {
    case ado::unspecified:
    case ado::command_unknown:
    case ado::command_text:
    case ado::command_table:
    case ado::command_table_direct:
        break;
    case stored_procedure:
    case saved_file:
        raise(data_error_number::not_supported, recordset_layer);
    default:
        if (options != flags || flags == 0) {
            raise(data_error_number::wrong_arguments, recordset_layer);
        }
    }
    if (flags != 0) {
        raise(data_error_number::not_supported, recordset_layer);
    }
    if (options == ado::command_text) {
        return SourceKind::command;
    }
    const bool is_table = options == ado::command_table || options == ado::command_table_direct;
    return is_table ? SourceKind::table : SourceKind::table_or_command;
}

} // namespace

AdoRecordset::~AdoRecordset() {
    let_go();
}

void AdoRecordset::Open(std::string_view source,
                        std::shared_ptr<platform::Connection> connection,
                        std::int32_t cursor_type,
                        std::int32_t lock_type,
                        std::int32_t options) {
    if (position_ != Position::closed) {
        raise(data_error_number::object_open, recordset_layer);
    }
    if (!is_cursor_type(cursor_type) || !is_lock_type(lock_type)) {
        raise(data_error_number::wrong_arguments, recordset_layer);
    }
    const SourceKind kind = source_kind(options);
    auto own = std::dynamic_pointer_cast<AdoConnection>(std::move(connection));
    if (!own || own->provider() == nullptr) {
        raise(data_error_number::invalid_connection, recordset_layer);
    }
    ProviderConnection& provider = *own->provider();
    auto cursor = own->guarded([&] { return open_source(provider, source, kind); });
    open_on(std::move(own), std::move(cursor), source);
    lock_type_ = lock_type;
}

void AdoRecordset::open_on(std::shared_ptr<AdoConnection> connection,
                           std::unique_ptr<ProviderCursor> cursor,
                           std::string_view source) {
    const bool has_record = connection->guarded([&] { return cursor->step(); });
    source_ = source;
    connection->attach(*this);
    try {
        fields_.assign(cursor->columns(), row_);
    } catch (...) {
        fields_.clear();
        connection->detach(*this);
        throw;
    }
    row_.connection = connection.get();
    connection_ = std::move(connection);
    cursor_ = std::move(cursor);
    stand(has_record ? Position::on_record : Position::at_end);
}

void AdoRecordset::Close() {
    if (position_ == Position::closed) {
        raise(data_error_number::object_closed, recordset_layer);
    }
    let_go();
}

void AdoRecordset::let_go() noexcept {
    stand(Position::closed);
    fields_.clear();
    cursor_.reset();
    if (connection_) {
        connection_->detach(*this);
        connection_.reset();
    }
}

std::int32_t AdoRecordset::State() const {
    return position_ == Position::closed ? ado::state_closed : ado::state_open;
}

bool AdoRecordset::Eof() const {
    if (position_ == Position::closed) {
        raise(data_error_number::object_closed, recordset_layer);
    }
    return position_ == Position::at_end;
}

void AdoRecordset::MoveNext() {
    switch (position_) {
    case Position::closed:
        raise(data_error_number::object_closed, recordset_layer);
    case Position::at_end:
        raise(data_error_number::no_current_record, recordset_layer);
    case Position::lost:
        throw DataError(data_error_number::unspecified,
                        "The rest of the records cannot be read since reading failed.",
                        recordset_layer);
    case Position::on_record:
        step();
    }
}

void AdoRecordset::step() {
    stand(Position::lost); // for the case that the engine fails
    const bool has_record = connection_->guarded([&] { return cursor_->step(); });
    stand(has_record ? Position::on_record : Position::at_end);
}

void AdoRecordset::stand(Position position) noexcept {
    position_ = position;
    row_.cursor = position == Position::on_record ? cursor_.get() : nullptr;
    if (position == Position::at_end) {
        cursor_->release();
    }
}

} // namespace krv::standard
