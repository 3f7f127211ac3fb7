#include "jet_writer.h"

#include "providers/jet/rc4.h"
#include "standard/utf8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <stdexcept>

namespace krv::jet_sample {

namespace {

using platform::Value;
using platform::ValueKind;
using platform::ValueView;

constexpr std::size_t page_size = 4096;
constexpr std::size_t rows_at = 14; ///< places of the rows on a data page
constexpr std::size_t row_count_at = 12;
constexpr unsigned offset_mask = 0x1FFF;
constexpr std::uint32_t signature = 1625;
constexpr std::uint32_t catalog_page = 2;
constexpr std::int32_t tables_container = 0x0F000001;
constexpr std::int32_t system_flag = -2147483647 - 1;
constexpr std::size_t longest_inline_value = 64;
constexpr std::size_t link_size = 4;

void put(std::string& bytes, std::uint64_t value, int size) {
    for (int i = 0; i < size; ++i) {
        bytes += i < 8 ? static_cast<char>(value >> (8 * i) & 0xFFU) : '\0';
    }
}

void put_at(std::string& bytes, std::size_t at, std::uint64_t value, int size) {
    std::string text;
    put(text, value, size);
    bytes.replace(at, text.size(), text);
}

unsigned half_at(const std::string& bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]) |
           static_cast<unsigned>(static_cast<unsigned char>(bytes[at + 1])) << 8U;
}

std::string whole(std::uint64_t value, int size) {
    std::string bytes;
    put(bytes, value, size);
    return bytes;
}

std::string utf16(std::string_view text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size();) {
        const auto character = standard::decode_utf8(text, at);
        if (character.code >= 0x10000) {
            put(bytes, 0xD800 + ((character.code - 0x10000) >> 10U), 2);
            put(bytes, 0xDC00 + (character.code & 0x3FFU), 2);
        } else {
            put(bytes, character.code, 2);
        }
        at += character.size;
    }
    return bytes;
}

/// Bytes that a value takes in the fixed part of a row; 0 for the other types.
int fixed_size(JetType type) {
    switch (type) {
    case JetType::byte:
        return 1;
    case JetType::integer:
        return 2;
    case JetType::long_integer:
    case JetType::single:
        return 4;
    case JetType::currency:
    case JetType::double_float:
    case JetType::date:
        return 8;
    case JetType::guid:
        return 16;
    case JetType::numeric:
        return 17;
    default:
        return 0;
    }
}

bool is_variable(JetType type) {
    return fixed_size(type) == 0 && type != JetType::boolean;
}

std::string guid_bytes(std::string_view text) {
    constexpr std::array<std::size_t, 16> order = {
        3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
    std::string digits(text);
    std::erase_if(digits, [](char c) { return c == '{' || c == '}' || c == '-'; });
    std::string bytes;
    for (const std::size_t place : order) {
        bytes += static_cast<char>(std::stoi(digits.substr(2 * place, 2), nullptr, 16));
    }
    return bytes;
}

/// A sign byte and four words, the highest first; the highest one is beyond a Decimal.
std::string numeric_bytes(platform::Decimal value) {
    std::string bytes(1, value.negative ? '\x80' : '\0');
    put(bytes, 0, 4);
    put(bytes, value.high, 4);
    put(bytes, value.low >> 32U, 4);
    put(bytes, value.low & 0xFFFFFFFFU, 4);
    return bytes;
}

std::string text_of(ValueView value) {
    if (value.kind() == ValueKind::bytes) {
        const auto bytes = value.as_bytes();
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }
    return std::string(value.as_text());
}

} // namespace

JetWriter::JetWriter()
    : pages_(3, Bytes(page_size, '\0')) {
} // header, one that nothing is on, the catalog's definition

JetWriter::Page JetWriter::new_page() {
    pages_.emplace_back(page_size, '\0');
    return static_cast<Page>(pages_.size() - 1);
}

/// \return the row's number, -1 when the page is full
int JetWriter::add_row(Page page, std::string_view owner, std::string_view row) {
    Bytes& bytes = pages_[page];
    if (bytes[0] == 0) {
        bytes.replace(0, 2, "\x01\x01");
        bytes.replace(4, owner.size(), owner);
    }
    const unsigned count = half_at(bytes, row_count_at);
    const std::size_t end =
        count == 0 ? page_size : half_at(bytes, rows_at + 2 * (count - 1)) & offset_mask;
    const std::size_t behind_places = rows_at + 2 * (count + 1);
    if (end < row.size() + behind_places) {
        return -1;
    }
    const std::size_t start = end - row.size();
    bytes.replace(start, row.size(), row);
    put_at(bytes, rows_at + 2 * count, start, 2);
    put_at(bytes, row_count_at, count + 1, 2);
    put_at(bytes, 2, start - behind_places, 2);
    return static_cast<int>(count);
}

/// What stands in a row for a memo or OLE value.
JetWriter::Bytes JetWriter::long_value(std::string_view data) {
    Bytes head;
    if (data.size() <= longest_inline_value) {
        put(head, data.size() | 0x80000000U, 12);
        return head.append(data);
    }
    if (data.size() > page_size - 32) {
        return chain(data);
    }
    int row = long_values_ == 0 ? -1 : add_row(long_values_, "LVAL", data);
    if (row < 0) {
        long_values_ = new_page();
        row = add_row(long_values_, "LVAL", data);
    }
    put(head, data.size() | 0x40000000U, 4);
    put(head, long_values_ << 8U | static_cast<Page>(row), 8);
    return head;
}

/// Rows on pages of their own, each with a link to the next; built from the last one back.
JetWriter::Bytes JetWriter::chain(std::string_view data) {
    constexpr std::size_t part_size = page_size - 64;
    Page next = 0;
    for (std::size_t part = (data.size() + part_size - 1) / part_size; part-- > 0;) {
        Bytes row;
        put(row, next, static_cast<int>(link_size));
        row.append(data.substr(part * part_size, part_size));
        const Page page = new_page();
        next = page << 8U | static_cast<Page>(add_row(page, "LVAL", row));
    }
    Bytes head;
    put(head, data.size(), 4);
    put(head, next, 8);
    return head;
}

JetWriter::Bytes JetWriter::encoded(const JetColumn& column, ValueView value) {
    switch (column.type) {
    case JetType::byte:
    case JetType::integer:
    case JetType::long_integer:
        return whole(static_cast<std::uint64_t>(value.as_whole()), fixed_size(column.type));
    case JetType::currency:
        return whole(static_cast<std::uint64_t>(value.as_currency().ten_thousandths), 8);
    case JetType::single:
        return whole(std::bit_cast<std::uint32_t>(value.as_single()), 4);
    case JetType::double_float:
        return whole(std::bit_cast<std::uint64_t>(value.as_double()), 8);
    case JetType::date:
        return whole(std::bit_cast<std::uint64_t>(value.as_date().serial), 8);
    case JetType::guid:
        return guid_bytes(value.as_text());
    case JetType::numeric:
        return numeric_bytes(value.as_decimal());
    case JetType::text:
        return utf16(value.as_text());
    case JetType::memo:
        return long_value(utf16(value.as_text()));
    case JetType::ole:
        return long_value(text_of(value));
    default:
        return text_of(value);
    }
}

/// Number of columns, fixed values, variable ones, their places from the last back, and a bit a
/// column that says whether there is a value; a Boolean is that bit alone.
JetWriter::Bytes JetWriter::row_bytes(const std::vector<JetColumn>& columns, const JetRow& row) {
    Bytes bytes = whole(columns.size(), 2);
    Bytes present((columns.size() + 7) / 8, '\0');
    std::vector<Bytes> variable;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const JetType type = columns[i].type;
        const ValueView value = row.at(i).view();
        const bool is_boolean = type == JetType::boolean;
        const bool is_present = is_boolean ? value.as_boolean() : !value.is_null();
        const Bytes data = is_present && !is_boolean ? encoded(columns[i], value) : Bytes();
        if (is_present) {
            present[i / 8] =
                static_cast<char>(static_cast<unsigned char>(present[i / 8]) | 1U << (i % 8));
        }
        if (is_variable(type)) {
            variable.push_back(data);
        } else {
            bytes += is_present && !is_boolean
                         ? data
                         : Bytes(static_cast<std::size_t>(fixed_size(type)), '\0');
        }
    }
    std::vector<std::size_t> places;
    for (const Bytes& data : variable) {
        places.push_back(bytes.size());
        bytes += data;
    }
    put(bytes, bytes.size(), 2);
    std::for_each(places.rbegin(), places.rend(), [&](std::size_t at) { put(bytes, at, 2); });
    put(bytes, variable.size(), 2);
    return bytes + present;
}

JetWriter::Bytes JetWriter::definition(const std::vector<JetColumn>& columns,
                                       std::size_t row_count,
                                       std::uint32_t map,
                                       char kind) const {
    Bytes body;
    Bytes names;
    std::uint64_t variable = 0;
    std::uint64_t fixed = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const JetColumn& column = columns[i];
        const bool is_far = is_variable(column.type);
        const auto size = static_cast<std::uint64_t>(column.size);
        put(body, static_cast<std::uint64_t>(column.type), 1);
        put(body, signature, 4);
        put(body, i, 2);
        put(body, is_far ? variable : 0, 2);
        put(body, i, 2);
        if (column.type == JetType::numeric) {
            put(body, size | static_cast<std::uint64_t>(column.scale) << 8U, 4);
        } else {
            put(body, 0, 4);
        }
        put(body, (is_far ? 2U : 3U) | (column.is_counter ? 4U : 0U), 6);
        put(body, is_far ? 0 : fixed, 2);
        put(body,
            column.type == JetType::text     ? 2 * size
            : column.type == JetType::binary ? size
            : is_far                         ? 0
                                             : static_cast<std::uint64_t>(fixed_size(column.type)),
            2);
        variable += is_far ? 1 : 0;
        fixed += static_cast<std::uint64_t>(fixed_size(column.type));
        const Bytes name = utf16(column.name);
        put(names, name.size(), 2);
        names += name;
    }
    Bytes page;
    put(page, 0x0102, 12);
    put(page, signature, 4);
    put(page, row_count, 8);
    put(page, 1, 16);
    put(page, static_cast<unsigned char>(kind), 1);
    put(page, columns.size(), 2);
    put(page, variable, 2);
    put(page, columns.size(), 10);
    put(page, map, 4);
    put(page, map, 4);
    page += body + names + "\xFF\xFF";
    if (page.size() > page_size) {
        throw std::length_error("a table has too many columns for one page");
    }
    put_at(page, 8, page.size() - 8, 4);
    page.resize(page_size, '\0');
    return page;
}

/// A bit for each page between the first and the last of a table.
std::uint32_t JetWriter::write_map(Page map_page, Page owner, const std::vector<Page>& pages) {
    const Page first = pages.empty() ? 0 : pages.front();
    const Page last = pages.empty() ? 0 : pages.back();
    Bytes bits(std::max<std::size_t>(64, (last - first) / 8 + 1), '\0');
    for (const Page page : pages) {
        char& byte = bits[(page - first) / 8];
        byte = static_cast<char>(static_cast<unsigned char>(byte) | 1U << ((page - first) % 8));
    }
    const int row = add_row(map_page, whole(owner, 4), '\0' + whole(first, 4) + bits);
    if (row < 0) {
        throw std::length_error("a table has too many pages for one map");
    }
    return map_page << 8U | static_cast<Page>(row);
}

void JetWriter::store(Page definition_page,
                      const std::vector<JetColumn>& columns,
                      std::size_t row_count,
                      const std::function<JetRow(std::size_t)>& row_at,
                      char kind) {
    const Bytes owner = whole(definition_page, 4);
    const Page map_page = new_page();
    std::vector<Page> pages;
    for (std::size_t i = 0; i < row_count; ++i) {
        const Bytes row = row_bytes(columns, row_at(i));
        if (!pages.empty() && add_row(pages.back(), owner, row) >= 0) {
            continue;
        }
        pages.push_back(new_page());
        if (add_row(pages.back(), owner, row) < 0) {
            throw std::length_error("a row is too long for a page");
        }
    }
    const std::uint32_t map = write_map(map_page, definition_page, pages);
    pages_[definition_page] = definition(columns, row_count, map, kind);
}

void JetWriter::add_table(const std::string& name,
                          const std::vector<JetColumn>& columns,
                          std::size_t row_count,
                          const std::function<JetRow(std::size_t)>& row_at) {
    const Page definition_page = new_page();
    store(definition_page, columns, row_count, row_at, 'N');
    tables_.push_back({name, definition_page});
}

std::string JetWriter::file() {
    const auto number = [](std::int32_t value) { return Value(ValueView::long_integer(value)); };
    const auto entry = [&](std::int32_t id,
                           std::int32_t parent,
                           const std::string& name,
                           std::int16_t type,
                           std::int32_t flags) {
        return JetRow{number(id),
                      number(parent),
                      Value::text(name),
                      Value(ValueView::integer(type)),
                      number(flags),
                      Value(ValueView::null())};
    };
    std::vector<JetRow> rows = {entry(tables_container, 0x0F000000, "Tables", 3, system_flag),
                                entry(static_cast<std::int32_t>(catalog_page),
                                      tables_container,
                                      "MSysObjects",
                                      1,
                                      system_flag)};
    for (const Table& table : tables_) {
        rows.push_back(
            entry(static_cast<std::int32_t>(table.definition), tables_container, table.name, 1, 0));
    }
    store(
        catalog_page,
        {{"Id", JetType::long_integer},
         {"ParentId", JetType::long_integer},
         {"Name", JetType::text, 255},
         {"Type", JetType::integer},
         {"Flags", JetType::long_integer},
         {"LvProp", JetType::ole}},
        rows.size(),
        [&](std::size_t i) { return rows[i]; },
        'S');
    pages_[0] = header();
    Bytes file;
    file.reserve(pages_.size() * page_size);
    for (const Bytes& page : pages_) {
        file += page;
    }
    return file;
}

JetWriter::Bytes JetWriter::header() const {
    using namespace std::string_literals;
    constexpr std::size_t masked_at = 0x18;
    constexpr std::size_t masked_size = 128;
    Bytes masked(masked_size, '\0');
    put_at(masked, 0x3C - masked_at, 1252, 2); // code page
    put_at(masked, 0x6E - masked_at, 1033, 2); // language
    // The password is masked by the day of creation, which is none here.
    const Bytes password = utf16(std::string_view(password_).substr(0, 20));
    masked.replace(0x42 - masked_at, password.size(), password);
    providers::jet::apply_rc4(
        providers::jet::header_key,
        std::span(reinterpret_cast<unsigned char*>(masked.data()), masked.size()));
    Bytes header = "\0\1\0\0Standard Jet DB\0\1\0\0\0"s + masked;
    header.resize(page_size, '\0');
    return header;
}

} // namespace krv::jet_sample
