#pragma once

#include <cstddef>
#include <string_view>

namespace dralo::html {

/// The room that CopyEscaped() needs for a text of that size. It may change all of it.
constexpr std::size_t RoomForEscaped(std::size_t bytes) {
  constexpr std::size_t kLongestEscape = 6;
  constexpr std::size_t kBeyond = 16;
  return bytes * kLongestEscape + kBeyond;
}

/// Writes the same as Escaped() to `to`, where there is RoomForEscaped() and not the text itself. Returns the
/// end of what it wrote. It searches and copies in one pass and reads nothing outside of the text.
char* CopyEscaped(char* to, std::string_view text);

}  // namespace dralo::html
