#include "record/journal.h"

#include <array>
#include <charconv>
#include <type_traits>
#include <variant>

namespace dralo::record {
namespace {

/// With its kind in front: 1, True and "1" are different values.
std::string Described(const Variant& value) {
  return std::visit(
      [](const auto& one) -> std::string {
        using Kind = std::decay_t<decltype(one)>;
        if constexpr (std::is_same_v<Kind, std::string>) {
          return "text " + one;
        } else if constexpr (std::is_same_v<Kind, bool>) {
          return one ? "true" : "false";
        } else if constexpr (std::is_same_v<Kind, std::int64_t>) {
          return "number " + std::to_string(one);
        } else if constexpr (std::is_same_v<Kind, double>) {
          std::array<char, 32> digits;
          const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), one).ptr;
          return "double " + std::string(digits.data(), end);
        } else if constexpr (requires { one.text; }) {
          return "decimal " + one.text;
        } else if constexpr (requires { one.nanosecond; }) {
          std::string text = "time";
          for (const auto part : {std::int64_t{one.year}, std::int64_t{one.month}, std::int64_t{one.day},
                                  std::int64_t{one.hour}, std::int64_t{one.minute}, std::int64_t{one.second},
                                  std::int64_t{one.nanosecond}}) {
            text += " " + std::to_string(part);
          }
          return text;
        } else if constexpr (requires { one.size(); }) {
          return "bytes " + std::string(one.begin(), one.end());
        } else {
          return "null";
        }
      },
      value);
}

}  // namespace

void Journal::Add(std::string_view what, std::string_view text) {
  text_.append(what).append(": ");
  for (std::size_t from = 0;;) {
    const std::size_t found = place_.empty() ? text.npos : text.find(place_, from);
    text_.append(text.substr(from, found - from));
    if (found == text.npos) break;
    text_ += "FOLDER";
    from = found + place_.size();
  }
  text_ += '\n';
}

void Journal::AddValue(std::string_view what, const Variant& value) { Add(what, Described(value)); }

void Journal::AddProperty(std::string_view what, const PropertyValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return Add(what, *text);
  if (const auto* number = std::get_if<std::int64_t>(&value)) return Add(what, std::to_string(*number));
  if (const auto* flag = std::get_if<bool>(&value)) return Add(what, *flag ? "true" : "false");
  if (const auto* list = std::get_if<std::vector<Variant>>(&value)) {
    return Add(what, std::to_string(list->size()) + " values");
  }
  Add(what, std::get<ObjectPtr>(value) == nullptr ? "no object" : "object");
}

std::uint64_t Hash(std::string_view text) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  return hash;
}

std::string Hexadecimal(std::uint64_t number) {
  std::string digits(16, '0');
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, number /= 16) {
    *digit = "0123456789abcdef"[number % 16];
  }
  return digits;
}

}  // namespace dralo::record
