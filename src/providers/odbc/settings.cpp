#include "providers/odbc/settings.h"

#include "krv/standard/data_error.h"
#include "providers/odbc/driver_manager.h"
#include "providers/odbc/gate.h"
#include "standard/ascii.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace krv::providers::odbc {

namespace {

using standard::ConnectionString;
using standard::same_keyword;
using Pairs = std::vector<ConnectionString::Pair>;

constexpr unsigned default_login_timeout_s = 15;

/// Drivers copy what they are given into buffers of a fixed size.
constexpr std::size_t longest_string = 8000;
constexpr std::size_t longest_value = 4000;

/// The driver manager (unixODBC 2.3.11) writes longer ones beyond its own buffer.
constexpr std::size_t longest_driver = 1000;

[[noreturn]] void malformed(const std::string& text) {
    throw standard::DataError(
        standard::data_error_number::malformed_connection_string, text, layer);
}

[[noreturn]] void refuse(const std::string& text) {
    throw standard::DataError(standard::data_error_number::not_supported, text, layer);
}

/// OLE DB's own.
bool is_left_out(std::string_view keyword) {
    constexpr std::string_view names[] = {"Provider",
                                          "Persist Security Info",
                                          "Mode",
                                          "Prompt",
                                          "Window Handle",
                                          "OLE DB Services",
                                          "Locale Identifier",
                                          "General Timeout",
                                          "Connect Timeout"};
    return std::any_of(std::begin(names), std::end(names), [&](std::string_view name) {
        return same_keyword(name, keyword);
    });
}

std::string odbc_keyword(const std::string& keyword) {
    constexpr std::string_view names[][2] = {{"Data Source", "DSN"},
                                             {"User ID", "UID"},
                                             {"Password", "PWD"},
                                             {"Initial Catalog", "DATABASE"}};
    for (const auto& [ole_db, odbc] : names) {
        if (same_keyword(ole_db, keyword)) {
            return std::string(odbc);
        }
    }
    return keyword;
}

std::string_view value_of(const Pairs& pairs, std::string_view keyword) {
    for (const auto& pair : pairs) {
        if (same_keyword(pair.keyword, keyword)) {
            return pair.value;
        }
    }
    return {};
}

void set(Pairs& pairs, std::string keyword, const std::string& value) {
    const auto same = std::find_if(pairs.begin(), pairs.end(), [&](const auto& pair) {
        return same_keyword(pair.keyword, keyword);
    });
    if (same == pairs.end()) {
        pairs.push_back({std::move(keyword), value});
    } else {
        same->value = value;
    }
}

void collect(const ConnectionString& settings, Pairs& pairs) {
    for (const auto& pair : settings.pairs()) {
        if (pair.value.empty() || is_left_out(pair.keyword)) {
            continue;
        }
        if (same_keyword(pair.keyword, "Extended Properties")) {
            collect(ConnectionString::parse(pair.value), pairs);
        } else {
            set(pairs, odbc_keyword(pair.keyword), pair.value);
        }
    }
}

void require_usable(const ConnectionString::Pair& pair) {
    constexpr std::string_view kept_out = "=;{}";
    if (pair.keyword.find_first_of(kept_out) != std::string::npos ||
        pair.keyword.find('\0') != std::string::npos) {
        malformed("A keyword of the connection string holds a character that ODBC does not take.");
    }
    if (pair.value.find('\0') != std::string::npos) {
        malformed("A value of the connection string holds a NUL character.");
    }
    const bool names_driver =
        same_keyword(pair.keyword, "DRIVER") || same_keyword(pair.keyword, "DSN");
    if (pair.value.size() > (names_driver ? longest_driver : longest_value) ||
        pair.keyword.size() > longest_value) {
        malformed("The connection string is too long.");
    }
    // Those would put passwords into files, or take a connection string out of one.
    for (const char* name : {"SAVEFILE", "FILEDSN"}) {
        if (same_keyword(pair.keyword, name)) {
            refuse(std::string("The keyword \"") + name + "\" is not supported.");
        }
    }
}

std::string library(const Pairs& pairs) {
    const auto driver = value_of(pairs, "DRIVER");
    return driver.empty() ? library_of_source(value_of(pairs, "DSN")) : library_of_driver(driver);
}

bool is_file(const std::string& library, std::string_view name) {
    std::string file = library.substr(library.rfind('/') + 1);
    std::transform(file.begin(), file.end(), file.begin(), standard::lower_ascii);
    return file.find(name) != std::string::npos;
}

void add_missing(Pairs& pairs, const char* keyword, const char* value) {
    if (value_of(pairs, keyword).empty()) {
        pairs.push_back({keyword, value});
    }
}

/// Drivers hold a whole result by default, and know texts without a length only by their size.
void add_driver_defaults(Pairs& pairs, const std::string& file) {
    if (is_file(file, "mdbodbc")) {
        refuse("Jet databases are opened by their file, not through ODBC "
               "(Provider=Microsoft.Jet.OLEDB.4.0;Data Source=...).");
    }
    if (is_file(file, "psqlodbc")) {
        add_missing(pairs, "UseDeclareFetch", "1");
        add_missing(pairs, "Fetch", "1024");
        add_missing(pairs, "BoolsAsChar", "0");
        add_missing(pairs, "MaxVarcharSize", "32768");
        // Its logs would hold what the user reads.
        add_missing(pairs, "Debug", "0");
        add_missing(pairs, "CommLog", "0");
    } else if (is_file(file, "maodbc") || is_file(file, "myodbc")) {
        add_missing(pairs, "NO_CACHE", "1");
        add_missing(pairs, "FORWARDONLY", "1");
    }
}

std::string braced(const std::string& value) {
    constexpr std::string_view special = "[]{}(),;?*=!@";
    const bool is_plain = value.find_first_of(special) == std::string::npos &&
                          standard::trimmed(value).size() == value.size();
    if (is_plain) {
        return value;
    }
    std::string result = "{";
    for (const char c : value) {
        result.append(c == '}' ? 2 : 1, c);
    }
    return result + '}';
}

unsigned login_timeout(const ConnectionString& settings) {
    const std::string_view text = settings.value("Connect Timeout");
    if (text.empty()) {
        return default_login_timeout_s;
    }
    constexpr unsigned longest = 24 * 60 * 60;
    unsigned value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || value > longest) {
        malformed("Connect Timeout is no number of seconds.");
    }
    return value;
}

} // namespace

OdbcSettings odbc_settings(const ConnectionString& settings) {
    OdbcSettings result;
    result.login_timeout_s = login_timeout(settings);
    Pairs pairs;
    collect(settings, pairs);
    std::for_each(pairs.begin(), pairs.end(), require_usable);
    result.library = library(pairs);
    add_driver_defaults(pairs, result.library);
    for (const auto& pair : pairs) {
        result.connection_string += pair.keyword + '=' + braced(pair.value) + ';';
    }
    if (result.connection_string.size() > longest_string) {
        malformed("The connection string is too long.");
    }
    return result;
}

} // namespace krv::providers::odbc
