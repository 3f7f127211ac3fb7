#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace krv::standard {

/// A connection string taken apart into keywords and values.
///
/// `keyword=value` pairs between semicolons. Letter case of keywords and blanks around keyword and
/// value do not count; `==` inside a keyword is one `=`. A value in `"` or `'` runs to the closing
/// quote, which is doubled to stand for itself; one in `{` and `}` likewise with `}}`. A text with
/// no `=` at all names an ODBC data source.
class ConnectionString {
public:
    struct Pair {
        std::string keyword; ///< as written, blanks around it cut
        std::string value;   ///< unquoted; empty means not given
    };

    /// No pairs.
    ConnectionString() = default;

    /// \throws DataError -2147217805 for an unclosed quote, text after a closing quote, an empty
    ///         keyword, a pair without `=` beside pairs with one, two providers that differ. The
    ///         error's text quotes nothing of the string, which may hold a password.
    static ConnectionString parse(std::string_view text);

    /// In the order of the text, each keyword once, a repeated one with its last value. Lives as
    /// long as this object, like every view that it hands out.
    std::span<const Pair> pairs() const noexcept { return pairs_; }

    /// The keyword's value; empty when it is absent or has none. Letter case does not count.
    std::string_view value(std::string_view keyword) const noexcept;

    /// Puts a user and a password in the place of the string's own, whichever spelling those had
    /// (`User ID`, `UID`, `Password`, `PWD`). An empty argument changes nothing.
    void set_login(std::string_view user_id, std::string_view password);

    /// The text with every secret value of this string replaced by `***`, in whichever quotes it
    /// stands. Secret are `PWD`, `Password` and every keyword with "password", "pwd", "secret" or
    /// "token" in its name, also inside `Extended Properties`.
    std::string without_secrets(std::string_view text) const;

private:
    void add(std::string keyword, std::string value);
    void replace(std::string_view keyword, std::string_view synonym, std::string_view value);
    void collect_secrets(std::vector<std::string>& secrets) const;

    std::vector<Pair> pairs_;
};

} // namespace krv::standard
