#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace serve {

/// The text escaped for a page, also for attributes between quotes.
std::string Escaped(std::string_view text);

/// The text as a part of an address between two "/". A "~" goes before parts that browsers take for a way up,
/// and before another "~".
std::string PathSegment(std::string_view text);

/// The text that a part of an address stands for; nothing when it has a "%" that two hexadecimal digits do
/// not follow.
std::optional<std::string> ReadPathSegment(std::string_view text);

/// The text with the letters A to Z in lower case.
std::string Lower(std::string_view text);

}  // namespace serve
