#include "table_reader.h"

#include "code_page.h"
#include "errors.h"
#include "long_value.h"
#include "number_decoding.h"
#include "text_decoding.h"

#include <algorithm>

namespace krv::jet_reader {

namespace {

using platform::ValueView;

constexpr int deleted_flag = 0x4000;
constexpr int offset_mask = 0x1FFF;
constexpr unsigned most_rows_on_a_page = 1000;
constexpr std::size_t calculated_head_size = 16;
/// The library fills one field for each column of a row, and a row may have more than its table.
constexpr std::size_t field_count = 1024;

} // namespace

TableReader::TableReader(JetFile& file, MdbCatalogEntry& entry, Columns columns)
    : file_(file)
    , table_(mdb_read_table(&entry))
    , fields_(field_count) {
    file_.page_user = nullptr;
    if (!table_) {
        refuse_damaged("a table has no definition");
    }
    if (mdb_read_columns(table_.get()) == nullptr) {
        refuse_damaged("a table has no columns");
    }
    if (columns == Columns::all) {
        describe_columns();
    }
    mdb_rewind_table(table_.get());
}

TableReader::~TableReader() {
    if (file_.page_user == this) {
        file_.page_user = nullptr;
    }
}

void TableReader::describe_columns() {
    const GPtrArray* const raw = table_->columns;
    if (table_->num_cols > raw->len || table_->num_cols > MDB_MAX_COLS) {
        refuse_damaged("a table has too many columns");
    }
    for (unsigned i = 0; i < table_->num_cols; ++i) {
        columns_.push_back(
            describe_column(*static_cast<MdbColumn*>(g_ptr_array_index(raw, i)), file_.is_jet3()));
        infos_.push_back(columns_.back().info);
    }
    texts_.resize(columns_.size());
}

bool TableReader::step() {
    make_page_current();
    for (;;) {
        while (next_row_ < rows_on_page_) {
            if (take_row(next_row_++)) {
                ++rows_;
                return true;
            }
        }
        if (!next_page()) {
            require_all_rows();
            return false;
        }
    }
}

/// Somebody else may have read another page since.
void TableReader::make_page_current() {
    if (file_.page_user == this) {
        return;
    }
    if (page_ != 0 && mdb_read_pg(file_.handle(), page_) == 0) {
        refuse_damaged("a page is missing");
    }
    file_.page_user = this;
}

bool TableReader::next_page() {
    if (mdb_read_next_dpg(table_.get()) == 0) {
        return false;
    }
    if (++pages_seen_ > file_.page_count()) {
        refuse_damaged("the pages of a table lead round in a circle");
    }
    page_ = static_cast<guint32>(file_.handle()->cur_pg);
    rows_on_page_ = static_cast<unsigned>(
        mdb_get_int16(file_.handle()->pg_buf, file_.handle()->fmt->row_count_offset));
    next_row_ = 0;
    if (rows_on_page_ > most_rows_on_a_page) {
        refuse_damaged("a page has too many rows");
    }
    return true;
}

/// A row that was moved stands where it was moved to; where it was, there is a pointer that counts as
/// deleted.
bool TableReader::take_row(unsigned row) {
    int start = 0;
    std::size_t size = 0;
    if (mdb_find_row(file_.handle(), static_cast<int>(row), &start, &size) != 0) {
        refuse_damaged("a row is not on its page");
    }
    if ((start & deleted_flag) != 0) {
        return false;
    }
    row_columns_ = mdb_crack_row(table_.get(), start & offset_mask, size, fields_.data());
    if (row_columns_ < 0) {
        refuse_damaged("a row does not fit its table");
    }
    return true;
}

/// More are possible in a sound file: the count was seen one too low.
void TableReader::require_all_rows() const {
    if (rows_ < table_->num_rows) {
        refuse_damaged("a table has fewer rows than it should");
    }
}

Bytes TableReader::field_bytes(std::size_t column) const {
    const MdbField& field = fields_[column];
    const auto page_size = static_cast<int>(file_.page_size());
    if (field.start < 0 || field.siz < 0 || field.start > page_size ||
        field.siz > page_size - field.start) {
        refuse_damaged("a value is not on its page");
    }
    return {file_.handle()->pg_buf + field.start, static_cast<std::size_t>(field.siz)};
}

ValueView TableReader::value(std::size_t column) {
    make_page_current();
    const MdbField& field = fields_[column];
    const Column& description = columns_[column];
    const bool is_null = field.is_null != 0 || description.place >= row_columns_;
    if (description.type == MDB_BOOL && !description.is_calculated) {
        return ValueView::boolean(!is_null);
    }
    if (is_null) {
        return ValueView::null();
    }
    const Bytes data = field_bytes(column);
    if (!description.is_calculated) {
        return decode(data, column);
    }
    const bool is_long = description.type == MDB_MEMO || description.type == MDB_OLE;
    const Bytes payload = calculated_payload(is_long ? long_bytes(data) : data);
    if (description.type == MDB_MEMO) {
        return memo_of(payload, texts_[column]);
    }
    if (payload.empty() && description.type != MDB_TEXT) {
        return ValueView::null();
    }
    if (description.type == MDB_NUMERIC) {
        return decode_ole_decimal(fixed_bytes(payload, 16).data(), texts_[column]);
    }
    return decode(payload, column);
}

Bytes TableReader::fixed_bytes(Bytes data, std::size_t size) const {
    if (data.size() < size) {
        refuse_damaged("a value is too short for its type");
    }
    return data.first(size);
}

/// Behind the head and the payload's length; a few bytes follow it.
Bytes TableReader::calculated_payload(Bytes data) const {
    const Bytes head = fixed_bytes(data, calculated_head_size + sizeof(std::uint32_t));
    const auto size = load<std::uint32_t>(head.data() + calculated_head_size);
    return fixed_bytes(data.subspan(head.size()), size);
}

Bytes TableReader::long_bytes(Bytes data) {
    return read_long_value(file_.handle(), file_.page_size(), data, long_value_);
}

ValueView TableReader::decode(Bytes data, std::size_t column) {
    std::string& storage = texts_[column];
    const auto bytes = [&](std::size_t size) { return fixed_bytes(data, size).data(); };
    switch (columns_[column].type) {
    case MDB_BOOL:
        return ValueView::boolean(*bytes(1) != 0);
    case MDB_BYTE:
        return ValueView::byte(*bytes(1));
    case MDB_INT:
        return ValueView::integer(static_cast<std::int16_t>(load<std::uint16_t>(bytes(2))));
    case MDB_LONGINT:
    case MDB_COMPLEX:
        return ValueView::long_integer(static_cast<std::int32_t>(load<std::uint32_t>(bytes(4))));
    case type_big_int:
        return ValueView::long_long(static_cast<std::int64_t>(load<std::uint64_t>(bytes(8))));
    case MDB_MONEY:
        return ValueView::currency({static_cast<std::int64_t>(load<std::uint64_t>(bytes(8)))});
    case MDB_FLOAT:
        return ValueView::single(load_float<float, std::uint32_t>(bytes(4)));
    case MDB_DOUBLE:
        return ValueView::double_float(load_float<double, std::uint64_t>(bytes(8)));
    case MDB_DATETIME:
        return date_value(load_float<double, std::uint64_t>(bytes(8)), storage);
    case type_extended_date:
        return extended_date(data, storage);
    case MDB_REPID:
        return ValueView::text(decode_guid(bytes(16), storage));
    case MDB_NUMERIC:
        return decode_numeric(bytes(17), columns_[column].scale, storage);
    case MDB_TEXT:
        return text_of(data, storage);
    case MDB_MEMO:
        return memo_of(long_bytes(data), storage);
    case MDB_OLE: {
        const Bytes object = long_bytes(data);
        storage.assign(object.begin(), object.end());
        return ValueView::bytes(std::as_bytes(std::span(storage)));
    }
    default:
        return ValueView::bytes(std::as_bytes(data));
    }
}

ValueView TableReader::text_of(Bytes data, std::string& storage) const {
    return ValueView::text(file_.is_jet3()
                               ? decode_code_page(file_.handle()->iconv_in, data, storage)
                               : decode_text(data, storage));
}

/// The bytes of a long value are gone when the next one is read.
ValueView TableReader::memo_of(Bytes data, std::string& storage) const {
    const std::string_view text = text_of(data, storage).as_text();
    if (text.data() != storage.data()) {
        storage = text;
    }
    return ValueView::text(storage);
}

ValueView TableReader::extended_date(Bytes data, std::string& storage) const {
    const std::string_view text(reinterpret_cast<const char*>(data.data()), data.size());
    if (const auto serial = decode_extended_date(text)) {
        return date_value(*serial, storage);
    }
    return ValueView::bytes(std::as_bytes(data));
}

} // namespace krv::jet_reader
