#pragma once

#include <span>
#include <string>
#include <string_view>

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

namespace krv::providers::odbc {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "the driver manager's wide texts are UTF-16");

/// UTF-8 as UTF-16; a broken sequence becomes one U+FFFD.
std::u16string wide_text(std::string_view text);

/// UTF-16 as UTF-8; a lone surrogate becomes one U+FFFD.
/// \return a view of `storage`
std::string_view narrow_text(std::span<const char16_t> text, std::string& storage);

/// For what the driver manager says itself, or made wide: a driver with narrow texts only says
/// UTF-8, and the manager takes each of its bytes for a character.
std::string narrow_text(std::u16string_view text);

/// A text for functions that take a pointer to change although they do not.
inline SQLWCHAR* as_sql(const std::u16string& text) noexcept {
    return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text.data()));
}

inline SQLCHAR* as_sql(std::string_view text) noexcept {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.data()));
}

inline SQLWCHAR* as_sql(std::span<char16_t> buffer) noexcept {
    return reinterpret_cast<SQLWCHAR*>(buffer.data());
}

} // namespace krv::providers::odbc
