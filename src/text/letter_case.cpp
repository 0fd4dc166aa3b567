#include "text/letter_case.h"

#include <unicode/uchar.h>

#include "text/ascii.h"
#include "text/utf8.h"

namespace dralo::text {
namespace {

constexpr bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

template <UChar32 (*Convert)(UChar32), char (*ConvertAscii)(char)>
void AppendInCase(std::string& result, std::string_view text) {
  result.reserve(result.size() + text.size());
  for (std::size_t at = 0; at < text.size();) {
    if (IsAscii(text[at])) {
      result += ConvertAscii(text[at++]);
      continue;
    }
    const auto [bytes, character] = DecodeFirst(text.substr(at));
    const auto other = character ? static_cast<char32_t>(Convert(static_cast<UChar32>(*character))) : 0;
    if (!character || other == *character) {
      result += text.substr(at, bytes);
    } else {
      AppendUtf8(result, other);
    }
    at += bytes;
  }
}

/// Takes the first character from `rest`, which is not empty. Returns its capital; for a byte that is no
/// UTF-8 a number that no character has.
UChar32 TakeCapital(std::string_view& rest) {
  const char first = rest[0];
  if (IsAscii(first)) {
    rest.remove_prefix(1);
    return ToUpper(first);
  }
  const auto [bytes, character] = DecodeFirst(rest);
  rest.remove_prefix(character ? bytes : 1);
  return character ? u_toupper(static_cast<UChar32>(*character)) : -static_cast<unsigned char>(first);
}

}  // namespace

void AppendUpper(std::string& to, std::string_view text) { AppendInCase<u_toupper, ToUpper>(to, text); }

void AppendLower(std::string& to, std::string_view text) { AppendInCase<u_tolower, ToLower>(to, text); }

std::string ToUpper(std::string_view text) {
  std::string result;
  AppendUpper(result, text);
  return result;
}

std::string ToLower(std::string_view text) {
  std::string result;
  AppendLower(result, text);
  return result;
}

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
  if (left == right) return true;
  while (!left.empty() && !right.empty()) {
    if (TakeCapital(left) != TakeCapital(right)) return false;
  }
  return left.empty() && right.empty();
}

}  // namespace dralo::text
