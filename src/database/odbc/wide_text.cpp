#include "database/odbc/wide_text.h"

#include <cstddef>

namespace dralo::database::odbc {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

struct Decoded {
  char32_t character;
  std::size_t bytes;
};

/// The character at the front of `text`, which is not empty.
Decoded DecodeFirst(std::string_view text) {
  const auto first = static_cast<unsigned char>(text[0]);
  if (first < 0x80) return {first, 1};
  std::size_t bytes = 0;
  if (first >= 0xC2 && first <= 0xDF) bytes = 2;
  if (first >= 0xE0 && first <= 0xEF) bytes = 3;
  if (first >= 0xF0 && first <= 0xF4) bytes = 4;
  if (bytes == 0 || text.size() < bytes) return {kReplacement, 1};
  char32_t character = first & (0x7FU >> bytes);
  for (std::size_t i = 1; i < bytes; ++i) {
    if (!IsContinuation(text[i])) return {kReplacement, 1};
    character = (character << 6) | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  const bool is_overlong = (bytes == 3 && character < 0x800) || (bytes == 4 && character < 0x10000);
  const bool is_surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (is_overlong || is_surrogate || character > 0x10FFFF) return {kReplacement, 1};
  return {character, bytes};
}

bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

void Append(std::string& text, char32_t character) {
  const auto put = [&](char32_t bits) { text += static_cast<char>(static_cast<unsigned char>(bits)); };
  if (character < 0x80) {
    put(character);
  } else if (character < 0x800) {
    put(0xC0 | (character >> 6));
    put(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    put(0xE0 | (character >> 12));
    put(0x80 | ((character >> 6) & 0x3F));
    put(0x80 | (character & 0x3F));
  } else {
    put(0xF0 | (character >> 18));
    put(0x80 | ((character >> 12) & 0x3F));
    put(0x80 | ((character >> 6) & 0x3F));
    put(0x80 | (character & 0x3F));
  }
}

}  // namespace

std::u16string ToWide(std::string_view text) {
  std::u16string wide;
  wide.reserve(text.size());
  while (!text.empty()) {
    const Decoded next = DecodeFirst(text);
    text.remove_prefix(next.bytes);
    if (next.character < 0x10000) {
      wide += static_cast<char16_t>(next.character);
    } else {
      wide += static_cast<char16_t>(0xD800 + ((next.character - 0x10000) >> 10));
      wide += static_cast<char16_t>(0xDC00 + ((next.character - 0x10000) & 0x3FF));
    }
  }
  return wide;
}

void AppendNarrow(std::string& text, std::u16string_view wide) {
  for (std::size_t i = 0; i < wide.size(); ++i) {
    char32_t character = wide[i];
    if (IsHighSurrogate(wide[i]) && i + 1 < wide.size() && IsLowSurrogate(wide[i + 1])) {
      character = 0x10000 + ((char32_t{wide[i]} - 0xD800) << 10) + (char32_t{wide[i + 1]} - 0xDC00);
      ++i;
    } else if (IsHighSurrogate(wide[i]) || IsLowSurrogate(wide[i])) {
      character = kReplacement;
    }
    Append(text, character);
  }
}

std::string ToNarrow(std::u16string_view wide) {
  std::string text;
  text.reserve(wide.size());
  AppendNarrow(text, wide);
  return text;
}

}  // namespace dralo::database::odbc
