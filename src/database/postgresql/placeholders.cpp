#include "database/postgresql/placeholders.h"

#include <algorithm>

#include "text/ascii.h"

namespace dralo::database::postgresql {

namespace {

bool IsOfAName(char c) {
  return text::IsLetterOrDigit(c) || c == '_' || c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

/// The size of what begins with a quote, with the quote that ends it; a quote that is not closed reaches to
/// the end. A doubled quote ends one and begins another.
std::size_t SizeOfQuoted(std::string_view text, bool has_escapes) {
  const char quote = text.front();
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (has_escapes && text[i] == '\\') {
      ++i;
    } else if (text[i] == quote) {
      return i + 1;
    }
  }
  return text.size();
}

/// "$tag$ ... $tag$"; 1 when it is another "$".
std::size_t SizeOfDollarQuoted(std::string_view text) {
  const auto second = text.find('$', 1);
  if (second == text.npos) return 1;
  const std::string_view tag = text.substr(0, second + 1);
  const std::string_view name = tag.substr(1, second - 1);
  if (!std::ranges::all_of(name, IsOfAName) || (!name.empty() && text::IsDigit(name.front()))) return 1;
  const auto end = text.find(tag, tag.size());
  return end == text.npos ? text.size() : end + tag.size();
}

/// Comments of this kind may stand in each other.
std::size_t SizeOfBlockComment(std::string_view text) {
  int depth = 0;
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    const std::string_view pair = text.substr(i, 2);
    if (pair == "/*") {
      ++depth;
    } else if (pair == "*/" && --depth == 0) {
      return i + 2;
    } else if (pair != "*/") {
      continue;
    }
    ++i;
  }
  return text.size();
}

std::size_t SizeOfWord(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::find_if_not(text, IsOfAName) - text.begin());
}

/// The size of the part that a "?" in it would belong to; a single sign otherwise.
std::size_t SizeOfPart(std::string_view text) {
  const char c = text.front();
  if (c == '\'' || c == '"') return SizeOfQuoted(text, false);
  if (c == '$') return SizeOfDollarQuoted(text);
  if (text.starts_with("--")) return std::min(text.find('\n'), text.size());
  if (text.starts_with("/*")) return SizeOfBlockComment(text);
  if (!IsOfAName(c)) return 1;
  const std::size_t word = SizeOfWord(text);
  const bool has_escapes = word == 1 && text::ToUpper(c) == 'E' && text.substr(1).starts_with('\'');
  return has_escapes ? 1 + SizeOfQuoted(text.substr(1), true) : word;
}

}  // namespace

NumberedStatement NumberParameters(std::string_view statement) {
  NumberedStatement numbered;
  numbered.text.reserve(statement.size() + 8);
  while (!statement.empty()) {
    const std::size_t size = statement.starts_with("??") ? 2 : SizeOfPart(statement);
    const std::string_view part = statement.substr(0, size);
    if (part == "?") {
      numbered.text.append("$").append(std::to_string(++numbered.parameters));
    } else {
      numbered.text.append(part == "??" ? "?" : part);
    }
    statement.remove_prefix(size);
  }
  return numbered;
}

}  // namespace dralo::database::postgresql
