#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "text/ascii.h"

namespace dralo::database {

/// Whether names without quotes may have the character.
inline bool IsOfName(char c) {
  return text::IsLetterOrDigit(c) || c == '_' || c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

/// What a token between a quote and `closing` names, in which `closing` is doubled.
std::string NameInQuotes(std::string_view token, char closing);

/// What stands outside parentheses; each pair of them is one token "(". `take` takes one token from the front
/// of the text that is left, which is not empty; an empty token for a blank or a comment.
std::vector<std::string_view> OuterTokens(std::string_view text,
                                          const std::function<std::string_view(std::string_view&)>& take);

}  // namespace dralo::database
