#include "expected_table.h"

#include "standard/formatting/decimal_text.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <sstream>

namespace krv::providers {

namespace {

using platform::ValueKind;
using platform::ValueView;

std::vector<std::string> split(const std::string& line, char separator) {
    std::vector<std::string> cells;
    std::istringstream in(line + separator);
    for (std::string cell; std::getline(in, cell, separator);) {
        cells.push_back(cell);
    }
    return cells;
}

std::string unescaped(const std::string& cell) {
    std::string text;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        if (cell[i] != '\\') {
            text += cell[i];
            continue;
        }
        switch (cell[++i]) {
        case 'n':
            text += '\n';
            break;
        case 'r':
            text += '\r';
            break;
        case 't':
            text += '\t';
            break;
        case 'x':
            text += static_cast<char>(std::stoi(cell.substr(i + 1, 2), nullptr, 16));
            i += 2;
            break;
        default:
            text += cell[i];
        }
    }
    return text;
}

bool is_float(const std::string& type) {
    return type == "FLOAT" || type == "DOUBLE";
}

std::string float_text(double value, const std::string& type) {
    char text[64];
    if (type == "FLOAT") {
        std::snprintf(text, sizeof text, "%.9g", static_cast<double>(static_cast<float>(value)));
    } else {
        std::snprintf(text, sizeof text, "%.17g", value);
    }
    return text;
}

/// Zeros at the end behind the point say nothing.
std::string exact_text(std::string text) {
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        text.erase(text.find_last_not_of('.') + 1);
    }
    return text;
}

std::string expected_cell(const std::string& cell, const std::string& type) {
    if (cell == "\\N") {
        return "Null";
    }
    if (is_float(type)) {
        return float_text(std::strtod(cell.c_str(), nullptr), type);
    }
    if (type == "MONEY" || type == "NUMERIC") {
        return exact_text(cell);
    }
    return "'" + unescaped(cell);
}

std::string whole_with_scale(std::string digits, int scale, bool negative) {
    const auto places = static_cast<std::size_t>(scale);
    if (digits.size() <= places) {
        digits.insert(0, places + 1 - digits.size(), '0');
    }
    digits.insert(digits.size() - places, 1, '.');
    return (negative ? "-" : "") + exact_text(digits);
}

std::string decimal_cell(platform::Decimal value) {
    std::string digits;
    std::uint64_t words[3] = {value.low & 0xFFFFFFFFU, value.low >> 32U, value.high};
    while (words[0] != 0 || words[1] != 0 || words[2] != 0) {
        std::uint64_t rest = 0;
        for (int i = 2; i >= 0; --i) {
            rest = rest << 32U | words[i];
            words[i] = rest / 10;
            rest %= 10;
        }
        digits.insert(digits.begin(), static_cast<char>('0' + rest));
    }
    return whole_with_scale(digits, value.scale, value.negative);
}

std::string currency_cell(platform::Currency value) {
    const bool negative = value.ten_thousandths < 0;
    const auto size = negative ? 0 - static_cast<std::uint64_t>(value.ten_thousandths)
                               : static_cast<std::uint64_t>(value.ten_thousandths);
    return whole_with_scale(std::to_string(size), 4, negative);
}

std::string date_cell(double serial) {
    using namespace std::chrono;
    const double whole = std::trunc(serial);
    auto second = std::llround(std::abs(serial - whole) * 86400);
    const year_month_day date(sys_days(year(1899) / 12 / 30) + days(static_cast<int>(whole)));
    char text[64];
    std::snprintf(text,
                  sizeof text,
                  "'%04d-%02u-%02u %02lld:%02lld:%02lld",
                  static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()),
                  static_cast<unsigned>(date.day()),
                  second / 3600,
                  second / 60 % 60,
                  second % 60);
    return text;
}

std::string bytes_cell(std::span<const std::byte> bytes, const std::string& type) {
    if (type == "OLE") {
        return "'<ole " + std::to_string(bytes.size()) + " bytes>";
    }
    std::string text = "'0x";
    for (const std::byte byte : bytes) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02X", std::to_integer<unsigned>(byte));
        text += digits;
    }
    return text;
}

std::string read_cell(ValueView value, const std::string& type) {
    switch (value.kind()) {
    case ValueKind::null:
        return "Null";
    case ValueKind::boolean:
        return value.as_boolean() ? "'True" : "'False";
    case ValueKind::single:
        return float_text(static_cast<double>(value.as_single()), type);
    case ValueKind::double_float:
        return float_text(value.as_double(), type);
    case ValueKind::currency:
        return currency_cell(value.as_currency());
    case ValueKind::decimal:
        return decimal_cell(value.as_decimal());
    case ValueKind::date:
        return date_cell(value.as_date().serial);
    case ValueKind::bytes:
        return bytes_cell(value.as_bytes(), type);
    case ValueKind::text:
        return "'" + std::string(value.as_text());
    default:
        return "'" + std::to_string(value.as_whole());
    }
}

} // namespace

std::vector<ExpectedTable> expected_tables(const std::filesystem::path& tsv) {
    std::vector<ExpectedTable> tables;
    for (const std::string& line : split(krv::testing::read_file(tsv.string()), '\n')) {
        const std::vector<std::string> cells = split(line, '\t');
        if (cells[0] == "TABLE") {
            tables.push_back({cells[1], {}, {}, {}});
        } else if (cells[0] == "COLUMN") {
            tables.back().columns.push_back(cells[1]);
            tables.back().types.push_back(cells[2]);
        } else if (cells[0] == "ROW") {
            auto& row = tables.back().rows.emplace_back();
            for (std::size_t i = 1; i < cells.size(); ++i) {
                row.push_back(expected_cell(cells[i], tables.back().types.at(i - 1)));
            }
        }
    }
    for (ExpectedTable& table : tables) {
        std::sort(table.rows.begin(), table.rows.end());
    }
    return tables;
}

std::vector<std::vector<std::string>> read_rows(standard::ProviderCursor& cursor,
                                                const std::vector<std::string>& types) {
    std::vector<std::vector<std::string>> rows;
    while (cursor.step()) {
        auto& row = rows.emplace_back();
        for (std::size_t i = 0; i < types.size(); ++i) {
            row.push_back(read_cell(cursor.value(i), types[i]));
        }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

} // namespace krv::providers
