#include "html/attribute_value.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <utility>

#include "html/address.h"
#include "html/character_reference.h"
#include "text/ascii.h"
#include "text/utf8.h"

namespace dralo::html {
namespace {

struct KnownReference {
  std::string_view name;
  std::string_view character;
};

constexpr auto kKnownReferences = std::to_array<KnownReference>(
    {{"&amp", "&"}, {"&lt", "<"}, {"&gt", ">"}, {"&quot", "\""}, {"&apos", "'"}, {"&nbsp", "\xC2\xA0"}});

std::optional<std::string> NumericCharacter(std::string_view digits) {
  const bool is_hexadecimal = digits.starts_with('x') || digits.starts_with('X');
  if (is_hexadecimal) digits.remove_prefix(1);
  std::uint32_t number = 0;
  const char* const end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, number, is_hexadecimal ? 16 : 10);
  const bool is_other = number < 9 || (0x80 <= number && number < 0xA0) || number > 0xFFFF ||
                        (0xD800 <= number && number < 0xE000);
  if (read.ec != std::errc() || read.ptr != end || is_other) return std::nullopt;
  std::string text;
  text::AppendUtf8(text, static_cast<char32_t>(number));
  return text;
}

/// The character that the reference, without its semicolon, stands for; nothing for the many that templates
/// do not need.
std::optional<std::string> CharacterOf(std::string_view reference) {
  if (reference.starts_with("&#")) return NumericCharacter(reference.substr(2));
  for (const KnownReference& known : kKnownReferences) {
    if (known.name == reference) return std::string(known.character);
  }
  return std::nullopt;
}

}  // namespace

void AttributeValue::Take(char c) {
  if (!reference_.empty()) {
    if (text::IsLetterOrDigit(c) || (c == '#' && reference_.size() == 1)) {
      reference_ += c;
      return;
    }
    EndReference(c);
    if (c == ';') return;
  }
  if (c == '&') {
    reference_ = c;
  } else {
    TakeDecoded({&c, 1});
  }
}

/// `next` is the character after the letters and digits of the reference.
void AttributeValue::EndReference(std::optional<char> next) {
  const std::string reference = std::exchange(reference_, {});
  const bool has_semicolon = next == ';';
  const std::string behind = reference + (next ? std::string(1, *next) : std::string());
  if (!BeginsCharacterReference(behind, TextPlace::kAttribute)) {
    TakeDecoded(has_semicolon ? behind : reference);
  } else if (const auto character = CharacterOf(reference)) {
    TakeDecoded(*character);
  } else {
    if (!IsAddress() || PlaceBehind(address_) != AddressPlace::kLater) is_clear_ = false;
    TakeDecoded("x");
  }
}

void AttributeValue::TakeDecoded(std::string_view text) {
  if (IsAddress()) address_ += text;
  if (meaning_ != AttributeMeaning::kScript) return;
  for (const char c : text) script_.Take(c);
}

std::optional<PlaceKind> AttributeValue::PlaceOfValue() {
  switch (meaning_) {
    case AttributeMeaning::kPlain:
      return PlaceKind::kAttribute;
    case AttributeMeaning::kAddress:
    case AttributeMeaning::kRelativeAddress:
      return PlaceInAddress();
    case AttributeMeaning::kScript:
      return PlaceInScript();
    case AttributeMeaning::kStyle:
      return PlaceKind::kStyle;
    case AttributeMeaning::kForbidden:
      return PlaceKind::kNothing;
  }
  return std::nullopt;
}

std::optional<PlaceKind> AttributeValue::PlaceInAddress() const {
  const bool is_relative = meaning_ == AttributeMeaning::kRelativeAddress;
  const AddressPlace place = PlaceBehind(address_);
  if (!is_clear_ || (!reference_.empty() && place != AddressPlace::kLater)) return std::nullopt;
  switch (place) {
    case AddressPlace::kStart:
      return is_relative ? PlaceKind::kRelativeAddress : PlaceKind::kAddress;
    case AddressPlace::kHost:
      return is_relative ? PlaceKind::kNothing : PlaceKind::kAddressPart;
    case AddressPlace::kScheme:
    case AddressPlace::kLater:
      return is_relative ? PlaceKind::kRelativeAddressPart : PlaceKind::kAddressPart;
    case AddressPlace::kRefused:
      return PlaceKind::kNothing;
    case AddressPlace::kUnclear:
      return std::nullopt;
  }
  return std::nullopt;
}

std::optional<PlaceKind> AttributeValue::PlaceInScript() const {
  // The value could become part of a reference that the template begins.
  if (!is_clear_ || !reference_.empty()) return std::nullopt;
  switch (script_.PlaceOfValue()) {
    case ScriptScanner::Place::kString:
      return PlaceKind::kScriptString;
    case ScriptScanner::Place::kValue:
      return PlaceKind::kScriptValue;
    case ScriptScanner::Place::kNothing:
      return PlaceKind::kNothing;
    case ScriptScanner::Place::kUnclear:
      return std::nullopt;
  }
  return std::nullopt;
}

void AttributeValue::TakeValue() {
  if (PlaceOfValue() == PlaceKind::kNothing) return;
  reference_.clear();
  if (IsAddress()) address_ += kValueInAddress;
  if (meaning_ == AttributeMeaning::kScript) script_.TakeValue();
}

bool AttributeValue::IsClear() {
  if (!IsAddress()) return true;
  if (!reference_.empty()) EndReference(std::nullopt);
  return is_clear_ && PlaceBehind(address_) != AddressPlace::kUnclear;
}

}  // namespace dralo::html
