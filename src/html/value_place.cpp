#include "html/value_place.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>

#include "html/address.h"
#include "html/text_escape.h"
#include "text/ascii.h"
#include "text/utf8.h"

namespace dralo::html {
namespace {

char32_t TakeCharacter(std::string_view& text) {
  const text::Decoded first = text::DecodeFirst(text);
  text.remove_prefix(first.bytes);
  return first.character.value_or(text::kReplacementCharacter);
}

void AppendNumber(std::string& to, std::uint32_t number, int base, std::size_t digits = 1) {
  char text[8];
  const char* end = std::to_chars(text, text + sizeof text, number, base).ptr;
  const auto size = static_cast<std::size_t>(end - text);
  if (size < digits) to.append(digits - size, '0');
  to.append(text, size);
}

/// Browsers give numeric references from 0x80 to 0x9F another meaning, so these characters are written as
/// they are.
void AppendUnquoted(std::string& to, std::string_view value) {
  while (!value.empty()) {
    char32_t character = TakeCharacter(value);
    if (character == 0) character = text::kReplacementCharacter;
    const bool is_plain = character < 0x80 && (text::IsLetterOrDigit(static_cast<char>(character)) ||
                                               std::string_view("._-").find(static_cast<char>(character)) !=
                                                   std::string_view::npos);
    if (is_plain || (0x80 <= character && character < 0xA0)) {
      text::AppendUtf8(to, character);
    } else {
      to += "&#";
      AppendNumber(to, character, 10);
      to += ';';
    }
  }
}

void AppendInAttribute(std::string& to, std::string_view value, bool is_unquoted) {
  if (is_unquoted) {
    AppendUnquoted(to, value);
  } else {
    AppendEscaped(to, value);
  }
}

/// Browsers ignore tabs and line breaks everywhere in an address.
void AppendAddress(std::string& to, std::string_view value, const ValuePlace& place) {
  value = WithoutIgnoredStart(value);
  const bool is_kept = place.kind == PlaceKind::kAddress ? IsHarmlessAddress(value) : IsOwnAddress(value);
  if (!is_kept) return AppendInAttribute(to, "#", place.is_unquoted);
  while (!value.empty()) {
    const std::size_t end = std::min(value.find_first_of("\t\r\n"), value.size());
    AppendInAttribute(to, value.substr(0, end), place.is_unquoted);
    value.remove_prefix(std::min(end + 1, value.size()));
  }
}

void AppendAddressPart(std::string& to, std::string_view value, bool keeps_slashes) {
  constexpr char kHexDigits[] = "0123456789ABCDEF";
  for (const char c : value) {
    const bool is_unreserved = text::IsLetterOrDigit(c) || c == '-' || c == '.' || c == '_' || c == '~' ||
                               (c == '/' && keeps_slashes);
    if (is_unreserved) {
      to += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      to.append({'%', kHexDigits[byte >> 4], kHexDigits[byte & 15]});
    }
  }
}

void AppendUnit(std::string& to, char32_t unit) {
  to += "\\u";
  AppendNumber(to, unit, 16, 4);
}

void AppendInScriptString(std::string& to, std::string_view value) {
  while (!value.empty()) {
    const char32_t character = TakeCharacter(value);
    if (character < 0x80 && text::IsLetterOrDigit(static_cast<char>(character))) {
      to += static_cast<char>(character);
    } else if (character < 0x10000) {
      AppendUnit(to, character);
    } else {
      AppendUnit(to, 0xD800 + ((character - 0x10000) >> 10));
      AppendUnit(to, 0xDC00 + (character & 0x3FF));
    }
  }
}

std::size_t Digits(std::string_view text) {
  std::size_t digits = 0;
  while (digits < text.size() && text::IsDigit(text[digits])) ++digits;
  return digits;
}

bool IsJsonNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  const std::size_t whole = Digits(text);
  if (whole == 0 || (whole > 1 && text[0] == '0')) return false;
  text.remove_prefix(whole);
  if (text.starts_with('.')) {
    const std::size_t fraction = Digits(text.substr(1));
    if (fraction == 0) return false;
    text.remove_prefix(fraction + 1);
  }
  if (!text.starts_with('e') && !text.starts_with('E')) return text.empty();
  text.remove_prefix(1);
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && Digits(text) == text.size();
}

bool IsStyleWord(std::string_view text) {
  return std::ranges::all_of(text, [](char c) {
    return text::IsLetterOrDigit(c) || std::string_view("#.%+-").find(c) != std::string_view::npos;
  });
}

void AppendValue(std::string& to, std::string_view value, const ValuePlace& place) {
  switch (place.kind) {
    case PlaceKind::kText:
    case PlaceKind::kAttribute:
      return AppendInAttribute(to, value, place.is_unquoted);
    case PlaceKind::kAddress:
    case PlaceKind::kRelativeAddress:
      return AppendAddress(to, value, place);
    case PlaceKind::kAddressPart:
      return AppendAddressPart(to, value, true);
    case PlaceKind::kRelativeAddressPart:
      return AppendAddressPart(to, value, false);
    case PlaceKind::kScriptString:
      return AppendInScriptString(to, value);
    case PlaceKind::kScriptValue:
      to.append(IsJsonNumber(value) ? value : "null");
      return;
    case PlaceKind::kStyle:
      if (IsStyleWord(value)) AppendInAttribute(to, value, place.is_unquoted);
      return;
    case PlaceKind::kNothing:
      return;
  }
}

}  // namespace

void AppendInPlace(std::string& to, std::string_view value, const ValuePlace& place) {
  const std::size_t before = to.size();
  AppendValue(to, value, place);
  if (place.is_whole_value && to.size() == before) to += R"("")";
}

void AppendAddressInPlace(std::string& to, std::string_view address, const ValuePlace& place) {
  const bool begins_address = place.kind == PlaceKind::kAddress || place.kind == PlaceKind::kRelativeAddress;
  if (begins_address) return AppendInAttribute(to, address, place.is_unquoted);
  AppendInPlace(to, address, place);
}

}  // namespace dralo::html
