#include "control/column_model.h"

#include "control/failures.h"

#include <exception>
#include <utility>

namespace krv {

namespace {

template <class Array>
std::size_t index_in(const Array& array, std::int32_t col) {
    if (col < 0 || static_cast<std::size_t>(col) >= array.size()) {
        fail_subscript();
    }
    return static_cast<std::size_t>(col);
}

template <class Array>
auto& at(Array& array, std::int32_t col) {
    return array[index_in(array, col)];
}

void set_tag_at(std::vector<std::int16_t>& array, std::int32_t col, krvListRecords value) {
    auto& element = at(array, col);
    element = narrow<std::int16_t>(value);
}

} // namespace

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
    return static_cast<krvListRecords>(at(from_record_, col));
}

void ColumnModel::SetColFromRecord(std::int32_t col, krvListRecords value) {
    set_tag_at(from_record_, col, value);
}

const std::string& ColumnModel::ColDataField(std::int32_t col) const {
    return at(data_field_, col);
}

void ColumnModel::SetColDataField(std::int32_t col, std::string value) {
    at(data_field_, col) = std::move(value);
}

krvListRecords ColumnModel::ColIsKey(std::int32_t col) const {
    return static_cast<krvListRecords>(at(is_key_, col));
}

void ColumnModel::SetColIsKey(std::int32_t col, krvListRecords value) {
    set_tag_at(is_key_, col, value);
}

const std::string& ColumnModel::ColFormat(std::int32_t col) const {
    return at(format_, col);
}

void ColumnModel::SetColFormat(std::int32_t col, std::string value) {
    at(format_, col) = std::move(value);
}

bool ColumnModel::ColIsNecessary(std::int32_t col) const {
    return is_necessary_[index_in(is_necessary_, col)];
}

void ColumnModel::SetColIsNecessary(std::int32_t col, bool value) {
    is_necessary_[index_in(is_necessary_, col)] = value;
}

std::int16_t ColumnModel::ColFieldLength(std::int32_t col) const {
    return at(field_length_, col);
}

void ColumnModel::SetColFieldLength(std::int32_t col, std::int16_t value) {
    at(field_length_, col) = value;
}

std::int16_t ColumnModel::ColFieldType(std::int32_t col) const {
    return at(field_type_, col);
}

void ColumnModel::SetColFieldType(std::int32_t col, std::int16_t value) {
    at(field_type_, col) = value;
}

} // namespace krv
