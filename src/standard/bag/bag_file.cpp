#include "krv/standard/bag_file.h"

#include "standard/bag/whole_file.h"
#include "standard/utf8.h"

#include "krv/control/karvo_list.h"
#include "krv/persistence/setting_keys.h"

#include <algorithm>
#include <utility>

namespace krv::standard {

namespace {

using persistence::KeyScope;
using persistence::setting_keys;

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

/// A key of one column: the prefix, then a number without padding.
bool is_column_key(std::string_view key, std::string_view prefix) {
    if (!key.starts_with(prefix) || key.size() == prefix.size()) {
        return false;
    }
    const std::string_view number = key.substr(prefix.size());
    return number.find_first_not_of("0123456789") == std::string_view::npos &&
           (number.size() == 1 || number.front() != '0');
}

bool is_of_control(std::string_view key) {
    const auto keys = setting_keys();
    return std::any_of(keys.begin(), keys.end(), [key](const persistence::SettingKey& known) {
        return known.scope == KeyScope::list ? key == known.name : is_column_key(key, known.name);
    });
}

bool is_comment(std::string_view line) {
    const std::size_t start = line.find_first_not_of(" \t");
    return start == std::string_view::npos || line[start] == '#';
}

} // namespace

BagFile BagFile::parse(std::string_view text) {
    BagFile file;
    std::string comment;
    std::size_t number = 0;
    if (text.starts_with(byte_order_mark)) {
        text.remove_prefix(byte_order_mark.size());
    }
    while (!text.empty()) {
        ++number;
        const std::string_view line = standard::take_line(text);
        try {
            file.take_line(line, comment);
        } catch (const BagTextError& error) {
            throw BagTextError(number, error.fault());
        }
    }
    file.last_comment_ = std::move(comment);
    return file;
}

void BagFile::take_line(std::string_view line, std::string& comment) {
    if (!is_valid_utf8(line)) {
        throw BagTextError(0, "the text is not UTF-8");
    }
    if (is_comment(line)) {
        comment.append(line).append("\n");
        return;
    }
    SettingReader reader(line);
    const std::string key = reader.key();
    reader.expect('=');
    platform::Value value = reader.value();
    if (!reader.at_end()) {
        throw BagTextError(0, "something follows the value of \"" + key + "\"");
    }
    if (bag_.find(key) != nullptr) {
        throw BagTextError(0, "\"" + key + "\" stands here for the second time");
    }
    bag_.set(key, std::move(value));
    if (!comment.empty()) {
        comments_.emplace(key, std::exchange(comment, {}));
    }
}

BagFile BagFile::load(const std::filesystem::path& path) {
    return parse(read_whole_file(path));
}

void BagFile::store(const KarvoList& list) {
    MemoryBag settings;
    list.WriteProperties(settings);
    for (const MemoryBag::Entry& entry : bag_.entries()) {
        if (!is_of_control(entry.key)) {
            settings.set(entry.key, entry.value);
        }
    }
    bag_ = std::move(settings);
}

std::string BagFile::text() const {
    std::string text;
    for (const MemoryBag::Entry& entry : bag_.entries()) {
        if (const auto comment = comments_.find(entry.key); comment != comments_.end()) {
            text += comment->second;
        }
        append_setting_key(entry.key, text);
        text += " = ";
        append_setting(entry.value.view(), text);
        text += '\n';
    }
    // What was said about a setting that has its default now is not lost.
    for (const auto& [key, comment] : comments_) {
        if (bag_.find(key) == nullptr) {
            text += comment;
        }
    }
    return text + last_comment_;
}

void BagFile::save(const std::filesystem::path& path) const {
    write_whole_file(path, text());
}

} // namespace krv::standard
