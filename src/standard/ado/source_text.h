#pragma once

#include "krv/standard/provider.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace krv::standard {

/// A record source without outer blanks and without one trailing `;`.
std::string_view trimmed_source(std::string_view text) noexcept;

/// Splits a name at the dots outside quotes. A part is bare (anything, blanks around it cut) or
/// stands in `[ ]`, `"` or `` ` ``, the closing character doubled to stand for itself.
/// \return the parts, unquoted, the outermost first; nothing when a part is empty, a quote is not
///         closed or text follows it
std::optional<TableName> split_name(std::string_view text);

/// Can the text be nothing but a name? True when all its characters can stand in a bare name
/// (letters, digits, `_ $ # @` and everything beyond ASCII), or when it is wholly quoted.
bool is_lone_identifier(std::string_view text);

/// The parts in the engine's quotes, closing quotes doubled, with dots between.
/// \param quote  `"` or `` ` ``
std::string quoted_name(std::span<const std::string> parts, char quote);

} // namespace krv::standard
