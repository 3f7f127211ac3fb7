#include "standard/ado/file_kind.h"

#include "krv/standard/data_error.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace krv::standard {

namespace {

std::filesystem::path native_path(std::string_view path) {
    return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

[[noreturn]] void refuse(std::string text, const char* source) {
    throw DataError(data_error_number::unspecified, std::move(text), source);
}

void require_ordinary_file(std::string_view path, const char* source) {
    if (path.empty()) {
        refuse("No database file is named (Data Source).", source);
    }
    if (path.find('\0') != std::string_view::npos) {
        refuse("The name of the database file holds a NUL character.", source);
    }
    const std::string quoted = "\"" + std::string(path) + "\"";
    std::error_code error;
    const auto status = std::filesystem::status(native_path(path), error);
    switch (status.type()) {
    case std::filesystem::file_type::regular:
        return;
    case std::filesystem::file_type::not_found:
        refuse("The database file " + quoted + " was not found.", source);
    case std::filesystem::file_type::none:
        refuse("The database file " + quoted + " cannot be reached: " + error.message() + ".",
               source);
    case std::filesystem::file_type::directory:
        refuse(quoted + " is a directory, not a database file.", source);
    default:
        // A pipe or a device: reading from it could wait for ever.
        refuse(quoted + " is no ordinary file.", source);
    }
}

} // namespace

FileKind file_kind(std::string_view path, const char* source) {
    require_ordinary_file(path, source);
    std::ifstream file(native_path(path), std::ios::binary);
    std::array<char, 20> start{};
    file.read(start.data(), start.size());
    if (!file.is_open() || file.bad()) {
        refuse("The database file \"" + std::string(path) + "\" cannot be read.", source);
    }
    using namespace std::string_view_literals;
    const std::string_view head(start.data(), static_cast<std::size_t>(file.gcount()));
    if (head.empty()) {
        return FileKind::empty;
    }
    if (head.starts_with("SQLite format 3\0"sv)) {
        return FileKind::sqlite;
    }
    const std::string_view behind_four = head.substr(std::min<std::size_t>(4, head.size()));
    return behind_four.starts_with("Standard Jet DB"sv) ||
                   behind_four.starts_with("Standard ACE DB"sv)
               ? FileKind::jet
               : FileKind::other;
}

std::string absolute_path(std::string_view path) {
    const std::u8string result = std::filesystem::absolute(native_path(path)).u8string();
    return {result.begin(), result.end()};
}

} // namespace krv::standard
