#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace serve {

/// As text of a page, also between the quotes of an attribute.
std::string Escaped(std::string_view text);

/// As a part of an address between two "/". A "~" goes in front of what browsers take for a way up, and of
/// "~".
std::string PathSegment(std::string_view text);

/// What a part of an address says; none when it has a "%" that two hexadecimal digits do not follow.
std::optional<std::string> ReadPathSegment(std::string_view text);

/// The letters from A to Z as small ones.
std::string Lower(std::string_view text);

}  // namespace serve
