#include "krv/standard/connection_string.h"

#include "krv/standard/data_error.h"
#include "standard/ascii.h"
#include "standard/letter_case.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace krv::standard {

namespace {

[[noreturn]] void malformed(const char* what) {
    throw DataError(data_error_number::malformed_connection_string,
                    std::string("Malformed connection string: ") + what + ".",
                    "ADODB.Connection");
}

class Reader {
public:
    explicit Reader(std::string_view text)
        : rest_(text) {}

    /// Stands on a pair; skips blanks and empty pairs.
    bool next() {
        skip_blanks();
        while (!rest_.empty() && rest_.front() == ';') {
            rest_.remove_prefix(1);
            skip_blanks();
        }
        return !rest_.empty();
    }

    std::string keyword() {
        std::string name;
        for (;;) {
            const std::size_t end = rest_.find_first_of("=;");
            if (end == std::string_view::npos || rest_[end] == ';') {
                malformed("a keyword has no \"=\"");
            }
            name += rest_.substr(0, end);
            rest_.remove_prefix(end + 1);
            if (rest_.empty() || rest_.front() != '=') {
                break;
            }
            name += '=';
            rest_.remove_prefix(1);
        }
        name = trimmed(name);
        if (name.empty()) {
            malformed("a keyword is empty");
        }
        return name;
    }

    std::string value() {
        skip_blanks();
        if (rest_.empty()) {
            return {};
        }
        const char first = rest_.front();
        if (first == '"' || first == '\'') {
            auto quoted = read_quoted(first);
            if (!quoted) {
                malformed("a quote is not closed, or text follows it");
            }
            return *quoted;
        }
        if (first == '{') {
            if (auto braced = read_quoted('}')) {
                return *braced;
            }
        }
        const std::string_view plain = rest_.substr(0, rest_.find(';'));
        rest_.remove_prefix(plain.size());
        return std::string(trimmed(plain));
    }

private:
    void skip_blanks() {
        while (!rest_.empty() && is_blank(rest_.front())) {
            rest_.remove_prefix(1);
        }
    }

    /// The value up to `close`, which stands for itself when doubled. Nothing is read when it is
    /// missing or when more than blanks follows.
    std::optional<std::string> read_quoted(char close) {
        std::string result;
        std::size_t at = 1;
        for (;; ++at) {
            if (at >= rest_.size()) {
                return std::nullopt;
            }
            if (rest_[at] == close) {
                if (at + 1 == rest_.size() || rest_[at + 1] != close) {
                    break;
                }
                ++at;
            }
            result += rest_[at];
        }
        std::string_view behind = rest_.substr(at + 1);
        behind = behind.substr(0, behind.find(';'));
        if (!trimmed(behind).empty()) {
            return std::nullopt;
        }
        rest_.remove_prefix(at + 1 + behind.size());
        return result;
    }

    std::string_view rest_;
};

bool is_secret(std::string_view keyword) {
    std::string name(keyword);
    std::transform(name.begin(), name.end(), name.begin(), lower_ascii);
    const auto holds = [&](const char* part) { return name.find(part) != std::string::npos; };
    return holds("password") || holds("pwd") || holds("secret") || holds("token");
}

std::string doubled(std::string_view text, char character) {
    std::string result;
    for (const char c : text) {
        result.append(c == character ? 2 : 1, c);
    }
    return result;
}

void replace_all(std::string& text, std::string_view found, std::string_view replacement) {
    for (std::size_t at = text.find(found); at != std::string::npos;
         at = text.find(found, at + replacement.size())) {
        text.replace(at, found.size(), replacement);
    }
}

} // namespace

ConnectionString ConnectionString::parse(std::string_view text) {
    ConnectionString result;
    if (text.find('=') == std::string_view::npos) {
        text = trimmed(text);
        while (!text.empty() && text.back() == ';') {
            text = trimmed(text.substr(0, text.size() - 1));
        }
        if (!text.empty()) {
            result.add("Data Source", std::string(text));
        }
        return result;
    }
    Reader reader(text);
    while (reader.next()) {
        std::string keyword = reader.keyword();
        result.add(std::move(keyword), reader.value());
    }
    return result;
}

void ConnectionString::add(std::string keyword, std::string value) {
    const auto same = std::find_if(pairs_.begin(), pairs_.end(), [&](const Pair& pair) {
        return same_keyword(pair.keyword, keyword);
    });
    if (same == pairs_.end()) {
        pairs_.push_back({std::move(keyword), std::move(value)});
        return;
    }
    if (same_keyword(keyword, "Provider") && !same->value.empty()) {
        if (value.empty()) {
            return;
        }
        if (!same_keyword(same->value, value)) {
            malformed("two providers are named");
        }
    }
    same->value = std::move(value);
}

std::string_view ConnectionString::value(std::string_view keyword) const noexcept {
    for (const Pair& pair : pairs_) {
        if (same_keyword(pair.keyword, keyword)) {
            return pair.value;
        }
    }
    return {};
}

void ConnectionString::replace(std::string_view keyword,
                               std::string_view synonym,
                               std::string_view value) {
    if (value.empty()) {
        return;
    }
    std::erase_if(pairs_, [&](const Pair& pair) {
        return same_keyword(pair.keyword, keyword) || same_keyword(pair.keyword, synonym);
    });
    pairs_.push_back({std::string(keyword), std::string(value)});
}

void ConnectionString::set_login(std::string_view user_id, std::string_view password) {
    replace("User ID", "UID", user_id);
    replace("Password", "PWD", password);
}

void ConnectionString::collect_secrets(std::vector<std::string>& secrets) const {
    for (const Pair& pair : pairs_) {
        if (is_secret(pair.keyword)) {
            secrets.push_back(pair.value);
        } else if (same_keyword(pair.keyword, "Extended Properties")) {
            try {
                parse(pair.value).collect_secrets(secrets);
            } catch (const DataError&) {
                secrets.push_back(pair.value);
            }
        }
    }
}

std::string ConnectionString::without_secrets(std::string_view text) const {
    std::vector<std::string> secrets;
    collect_secrets(secrets);
    for (std::size_t i = secrets.size(); i-- > 0;) {
        for (const char quote : {'}', '"', '\''}) {
            secrets.push_back(doubled(secrets[i], quote));
        }
    }
    // The longest first: a secret may be part of another one.
    std::sort(secrets.begin(), secrets.end(), [](const auto& a, const auto& b) {
        return a.size() != b.size() ? a.size() > b.size() : a < b;
    });
    secrets.erase(std::unique(secrets.begin(), secrets.end()), secrets.end());
    std::string result(text);
    for (const std::string& secret : secrets) {
        if (!secret.empty()) {
            replace_all(result, secret, "***");
        }
    }
    return result;
}

} // namespace krv::standard
