#include "text/list.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "text/blanks.h"
#include "text/letter_case.h"

namespace dralo::text {

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string> items;
  if (separator.empty()) return {std::string(text)};
  for (std::size_t at = text.find(separator); at != text.npos; at = text.find(separator)) {
    items.emplace_back(text.substr(0, at));
    text.remove_prefix(at + separator.size());
  }
  items.emplace_back(text);
  return items;
}

std::int16_t FindInList(std::string_view list, std::string_view text) {
  if (IsBlank(list) || IsBlank(text)) return 0;
  for (std::int16_t position = 1; position < std::numeric_limits<std::int16_t>::max(); ++position) {
    const std::size_t comma = list.find(',');
    if (EqualIgnoringCase(list.substr(0, comma), text)) return position;
    if (comma == list.npos) return 0;
    list.remove_prefix(comma + 1);
  }
  return 0;
}

std::int16_t FindInList(std::string_view list, int number) {
  if (list.empty()) return 0;
  char digits[16];
  const char* end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  return FindInList(list, std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

std::string_view NthItem(std::string_view list, int n) {
  for (int position = 1;; ++position) {
    const std::size_t comma = list.find(',');
    if (position == n) return list.substr(0, comma);
    if (comma == list.npos || n < 1) return {};
    list.remove_prefix(comma + 1);
  }
}

std::int16_t CountOf(std::string_view list, char separator) {
  const auto count = std::ranges::count(list, separator);
  return static_cast<std::int16_t>(std::min<std::ptrdiff_t>(count, std::numeric_limits<std::int16_t>::max()));
}

}  // namespace dralo::text
