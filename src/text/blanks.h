#pragma once

#include <string_view>

namespace dralo::text {

/// Whether the text consists of blanks only, or of nothing. Line breaks, tabs and other white space are not
/// blanks.
constexpr bool IsBlank(std::string_view text) {
  return text.empty() || (text.front() == ' ' && text.find_first_not_of(' ') == text.npos);
}

/// The text without leading and trailing blanks.
constexpr std::string_view TrimBlanks(std::string_view text) {
  if (IsBlank(text)) return {};
  text.remove_prefix(text.find_first_not_of(' '));
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace dralo::text
