#include "database/statement_text.h"

#include <algorithm>

#include "dralo/error.h"
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

std::string_view FromFirstWord(std::string_view text) {
  text = WithoutFront(text, '(');
  while (text.starts_with('#')) text = WithoutFront(text.substr(std::min(text.find('\n'), text.size())), '(');
  return text;
}

std::string_view WithoutEnd(std::string_view text) {
  while (!text.empty() && (text::IsAsciiSpace(text.back()) || text.back() == ';')) text.remove_suffix(1);
  return text;
}

std::string Filled(std::string_view pattern, char sign, std::string_view text) {
  std::string filled;
  for (const char c : pattern) {
    if (c == sign) {
      filled += text;
    } else {
      filled += c;
    }
  }
  return filled;
}

void RequireStatement(std::string_view text) {
  if (text::TrimAsciiSpace(text).empty())
    throw platform::Error("The statement is empty", 0, {}, std::string(text));
  if (text.find('\0') == text.npos) return;
  throw platform::Error("The statement has a zero byte in its text", 0, {}, std::string(text));
}

void RequireEqualCounts(std::size_t expected, std::size_t given, std::string_view text) {
  if (expected == given) return;
  throw platform::Error("The statement expects " + std::to_string(expected) +
                            (expected == 1 ? " parameter value, but " : " parameter values, but ") +
                            std::to_string(given) + (given == 1 ? " was given" : " were given"),
                        0, {}, std::string(text));
}

}  // namespace dralo::database
