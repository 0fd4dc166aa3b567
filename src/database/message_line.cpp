#include "database/message_line.h"

#include "text/white_space.h"

namespace dralo::database {

std::string MessageLine(std::string_view message, std::span<const std::string_view> noise) {
  std::string line;
  for (const char c : message) {
    if (!text::IsAsciiSpace(c)) {
      line += c;
    } else if (!line.ends_with(' ')) {
      line += ' ';
    }
  }
  for (const std::string_view words : noise) {
    for (auto at = line.find(words); at != line.npos; at = line.find(words)) line.erase(at, words.size());
  }
  return std::string(text::TrimAsciiSpace(line));
}

}  // namespace dralo::database
