#include "database/statement_text.h"

#include <algorithm>

#include "text/white_space.h"

namespace dralo::database {

std::string_view WithoutFront(std::string_view text, char also) {
  while (!text.empty()) {
    std::size_t end = 1;
    if (text.starts_with("--")) {
      end = text.find('\n');
    } else if (text.starts_with("/*")) {
      end = text.find("*/", 2);
      if (end != text.npos) end += 2;
    } else if (!text::IsAsciiSpace(text.front()) && text.front() != also) {
      break;
    }
    text.remove_prefix(std::min(end, text.size()));
  }
  return text;
}

std::string_view WithoutEnd(std::string_view text) {
  while (!text.empty() && (text::IsAsciiSpace(text.back()) || text.back() == ';')) text.remove_suffix(1);
  return text;
}

}  // namespace dralo::database
