#include "control/column_model.h"

#include <exception>
#include <utility>

namespace krv {

void ColumnModel::Resize(std::int32_t upper_bound) {
    if (upper_bound < 0) {
        fail_subscript();
    }
    const auto resize_all = [&](auto resize) {
        resize(editable_);
        resize(from_record_);
        resize(data_field_);
        resize(is_key_);
        resize(format_);
        resize(is_necessary_);
        resize(field_length_);
        resize(field_type_);
    };
    const auto count = static_cast<std::size_t>(upper_bound) + 1;
    try {
        resize_all([count](auto& array) { array.reserve(count); });
    } catch (const std::exception&) { // bad_alloc, length_error
        throw platform::RuntimeError(
            platform::error_number::out_of_memory, "Out of memory", "krvList3");
    }
    resize_all([count](auto& array) { array.resize(count); });
}

bool ColumnModel::ColEditable(std::int32_t col) const {
    return editable_[index_in(editable_, col)];
}

void ColumnModel::SetColEditable(std::int32_t col, bool value) {
    editable_[index_in(editable_, col)] = value;
}

krvListRecords ColumnModel::ColFromRecord(std::int32_t col) const {
    return static_cast<krvListRecords>(from_record_[index_in(from_record_, col)]);
}

void ColumnModel::SetColFromRecord(std::int32_t col, krvListRecords value) {
    auto& element = from_record_[index_in(from_record_, col)];
    element = narrow<std::int16_t>(value);
}

void ColumnModel::SetColDataField(std::int32_t col, std::string value) {
    data_field_[index_in(data_field_, col)] = std::move(value);
}

krvListRecords ColumnModel::ColIsKey(std::int32_t col) const {
    return static_cast<krvListRecords>(is_key_[index_in(is_key_, col)]);
}

void ColumnModel::SetColIsKey(std::int32_t col, krvListRecords value) {
    auto& element = is_key_[index_in(is_key_, col)];
    element = narrow<std::int16_t>(value);
}

void ColumnModel::SetColFormat(std::int32_t col, std::string value) {
    format_[index_in(format_, col)] = std::move(value);
}

bool ColumnModel::ColIsNecessary(std::int32_t col) const {
    return is_necessary_[index_in(is_necessary_, col)];
}

void ColumnModel::SetColIsNecessary(std::int32_t col, bool value) {
    is_necessary_[index_in(is_necessary_, col)] = value;
}

std::int16_t ColumnModel::ColFieldLength(std::int32_t col) const {
    return field_length_[index_in(field_length_, col)];
}

void ColumnModel::SetColFieldLength(std::int32_t col, std::int16_t value) {
    field_length_[index_in(field_length_, col)] = value;
}

std::int16_t ColumnModel::ColFieldType(std::int32_t col) const {
    return field_type_[index_in(field_type_, col)];
}

void ColumnModel::SetColFieldType(std::int32_t col, std::int16_t value) {
    field_type_[index_in(field_type_, col)] = value;
}

} // namespace krv
