#include "standard/ado/ado_fields.h"

#include "standard/ado/ado_connection.h"
#include "standard/letter_case.h"

namespace krv::standard {

platform::ValueView AdoField::Value() const {
    if (row_->cursor == nullptr) {
        raise(data_error_number::no_current_record, fields_layer);
    }
    // A provider may convert a value, or fetch a long one, only when it is asked for.
    return row_->connection->guarded([this] { return row_->cursor->value(column_); });
}

void AdoFields::assign(std::span<const ColumnInfo> columns, const CurrentRow& row) {
    clear();
    fields_.reserve(columns.size());
    for (const ColumnInfo& column : columns) {
        fields_.emplace_back(column, row, fields_.size());
    }
    // Field 0 is the first of its name whatever the others are called, so it is a safe first guess.
    next_.assign(fields_.size(), 0);
}

void AdoFields::clear() noexcept {
    fields_.clear();
    next_.clear();
    last_ = 0;
}

const platform::Field& AdoFields::Item(std::string_view name) const {
    if (!fields_.empty()) {
        const std::size_t guess = next_[last_];
        if (fields_[guess].Name() == name) {
            last_ = guess;
            return fields_[guess];
        }
        if (fields_[last_].Name() == name) {
            return fields_[last_];
        }
        if (equal_in_any_case(fields_[guess].Name(), name)) {
            last_ = guess;
            return fields_[guess];
        }
    }
    return search(name);
}

const platform::Field& AdoFields::search(std::string_view name) const {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        if (equal_in_any_case(fields_[i].Name(), name)) {
            next_[last_] = i;
            last_ = i;
            return fields_[i];
        }
    }
    raise(data_error_number::item_not_found, fields_layer);
}

const platform::Field& AdoFields::Item(std::int32_t index) const {
    if (index < 0 || index >= Count()) {
        raise(data_error_number::item_not_found, fields_layer);
    }
    return fields_[static_cast<std::size_t>(index)];
}

} // namespace krv::standard
