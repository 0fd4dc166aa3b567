#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dralo::text {

inline constexpr std::size_t kLogLineBytes = 2'000;

/// `text` as one line of a log. Characters that could begin a line or move the cursor of a terminal, which
/// are controls, U+0085, U+2028 and U+2029, are written as "\xNN" for each of their bytes, and so are bytes
/// that are no UTF-8. Cut to kLogLineBytes, never in the middle of a character or of "\xNN".
std::string LogLine(std::string_view text);

}  // namespace dralo::text
