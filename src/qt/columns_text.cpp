#include "qt/columns_text.h"

#include "krv/persistence/setting_keys.h"
#include "krv/platform/error.h"
#include "krv/standard/bag_text.h"

#include <algorithm>
#include <limits>

namespace krv::qt {

namespace {

using persistence::KeyScope;
using persistence::SettingKey;
using platform::Value;
using platform::ValueView;
using standard::MemoryBag;

constexpr std::size_t most_columns = std::numeric_limits<std::int16_t>::max();
constexpr std::int32_t default_width = 960;
constexpr std::int32_t default_alignment = 9;

/// The keys of a column, its caption left out.
const std::vector<SettingKey>& keys_of_a_column() {
    static const std::vector<SettingKey> keys = [] {
        std::vector<SettingKey> found;
        for (const SettingKey& key : persistence::setting_keys()) {
            if (key.scope == KeyScope::column && key.name != "Caption") {
                found.push_back(key);
            }
        }
        return found;
    }();
    return keys;
}

std::string numbered(std::string_view key, std::int32_t col) {
    return std::string(key) + std::to_string(col);
}

bool is_key_of_a_column(std::string_view name) {
    const auto& keys = keys_of_a_column();
    return std::any_of(
        keys.begin(), keys.end(), [name](const SettingKey& key) { return key.name == name; });
}

MemoryBag read_column(std::string_view line) {
    MemoryBag column;
    standard::SettingReader reader(line);
    while (!reader.at_end()) {
        const std::string key = reader.key();
        if (!is_key_of_a_column(key)) {
            throw standard::BagTextError(0, "\"" + key + "\" is no setting of a column");
        }
        if (column.find(key) != nullptr) {
            throw standard::BagTextError(0, "\"" + key + "\" stands here for the second time");
        }
        reader.expect('=');
        column.set(key, reader.value());
    }
    return column;
}

/// Non-characters are valid UTF-8, but no file in XML can hold them.
void escape_non_characters(std::string& text) {
    for (const auto& [character, escape] :
         {std::pair("\xEF\xBF\xBE", "\\u{fffe}"), std::pair("\xEF\xBF\xBF", "\\u{ffff}")}) {
        for (auto at = text.find(character); at != std::string::npos; at = text.find(character)) {
            text.replace(at, 3, escape);
        }
    }
}

void append(std::string_view key, ValueView value, std::string& text) {
    if (!text.empty() && text.back() != '\n') {
        text += ' ';
    }
    standard::append_setting_key(key, text);
    text += '=';
    standard::append_setting(value, text);
}

bool is_blank(std::string_view line) {
    return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

} // namespace

MemoryBag new_column() {
    MemoryBag column;
    column.set("ColWidth", Value(ValueView::long_integer(default_width)));
    column.set("ColAlignment", Value(ValueView::long_integer(default_alignment)));
    column.set("ColFieldType", Value(ValueView::long_integer(0)));
    return column;
}

ColumnSettings read_columns(std::string_view text) {
    ColumnSettings read;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::string_view line = standard::take_line(text);
        if (is_blank(line)) {
            continue;
        }
        if (read.columns.size() == most_columns) {
            if (!read.fault) {
                read.fault = {number, "a list has at most 32,767 columns"};
            }
            break;
        }
        read.columns.push_back(new_column());
        read.lines.push_back(number);
        if (read.fault) {
            continue;
        }
        try {
            read.columns.back() = read_column(line);
        } catch (const standard::BagTextError& error) {
            read.fault = {number, error.fault()};
        }
    }
    if (read.columns.empty()) {
        read.columns.push_back(new_column());
        read.lines.push_back(1);
    }
    return read;
}

std::int32_t column_count(const MemoryBag& bag) {
    constexpr std::int32_t default_count = 2;
    const Value* const count = bag.find("Cols");
    return count == nullptr ? default_count : static_cast<std::int32_t>(count->view().as_whole());
}

std::string columns_text(const MemoryBag& bag) {
    std::string text;
    const std::int32_t cols = column_count(bag);
    for (std::int32_t col = 0; col < cols; ++col) {
        for (const SettingKey& key : keys_of_a_column()) {
            const Value* const value = bag.find(numbered(key.name, col));
            // The width always stands there, so that no line is blank.
            if (value != nullptr || key.name == "ColWidth") {
                append(key.name, (value != nullptr ? *value : key.default_read).view(), text);
            }
        }
        text += '\n';
    }
    text.pop_back();
    escape_non_characters(text);
    return text;
}

void replace_columns(const std::vector<MemoryBag>& columns, MemoryBag& bag) {
    const auto cols = static_cast<std::int32_t>(columns.size());
    const std::int32_t old_cols = column_count(bag);
    for (std::int32_t col = 0; col < std::max(cols, old_cols); ++col) {
        for (const SettingKey& key : keys_of_a_column()) {
            bag.erase(numbered(key.name, col));
        }
        if (col >= cols) {
            bag.erase(numbered("Caption", col));
            continue;
        }
        for (const MemoryBag::Entry& entry : columns[static_cast<std::size_t>(col)].entries()) {
            bag.set(numbered(entry.key, col), entry.value);
        }
    }
    bag.set("Cols", Value(ValueView::long_integer(cols)));
}

} // namespace krv::qt
