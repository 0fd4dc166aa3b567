#include "database/odbc/wide_text.h"

#include <cstddef>

#include "text/utf8.h"

namespace dralo::database::odbc {

namespace {

bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

}  // namespace

std::u16string ToWide(std::string_view text) {
  std::u16string wide;
  wide.reserve(text.size());
  while (!text.empty()) {
    const auto [bytes, character] = text::DecodeFirst(text);
    text.remove_prefix(bytes);
    if (!character) {
      wide.append(bytes, char16_t{text::kReplacementCharacter});
    } else if (*character < 0x10000) {
      wide += static_cast<char16_t>(*character);
    } else {
      wide += static_cast<char16_t>(0xD800 + ((*character - 0x10000) >> 10));
      wide += static_cast<char16_t>(0xDC00 + ((*character - 0x10000) & 0x3FF));
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
      character = text::kReplacementCharacter;
    }
    text::AppendUtf8(text, character);
  }
}

std::string ToNarrow(std::u16string_view wide) {
  std::string text;
  text.reserve(wide.size());
  AppendNarrow(text, wide);
  return text;
}

}  // namespace dralo::database::odbc
