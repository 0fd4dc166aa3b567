#pragma once

#include <array>
#include <charconv>
#include <cstdio>
#include <string>

#include "dralo/variant.h"

namespace dralo::tests {

/// The text of a value from which its kind can be told: null, true, 5, 5.0, 5m (decimal), 'text', x'00FF',
/// 2024-01-02 03:04:05[.000000006].
struct Show {
  std::string operator()(platform::Null) const { return "null"; }
  std::string operator()(bool flag) const { return flag ? "true" : "false"; }
  std::string operator()(std::int64_t number) const { return std::to_string(number); }
  std::string operator()(double number) const {
    std::array<char, 32> digits{};
    const std::string text(digits.data(),
                           std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
    return text.find_first_of(".e") == text.npos ? text + ".0" : text;
  }
  std::string operator()(platform::DecimalView decimal) const { return std::string(decimal.text) + "m"; }
  std::string operator()(std::string_view text) const { return "'" + std::string(text) + "'"; }
  std::string operator()(const platform::DateTime& time) const {
    std::array<char, 64> text{};
    const int size = std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02u:%02u:%02u", time.year,
                                   unsigned{time.month}, unsigned{time.day}, unsigned{time.hour},
                                   unsigned{time.minute}, unsigned{time.second});
    std::string shown(text.data(), static_cast<std::size_t>(size));
    if (time.nanosecond != 0) shown += "." + std::to_string(1'000'000'000 + time.nanosecond).substr(1);
    return shown;
  }
  std::string operator()(platform::BytesView bytes) const {
    std::string shown = "x'";
    for (std::size_t i = 0; i < bytes.size; ++i) {
      for (const int digit : {bytes.data[i] >> 4, bytes.data[i] & 15}) shown += "0123456789ABCDEF"[digit];
    }
    return shown + "'";
  }
};

inline std::string Shown(const platform::VariantView& value) { return std::visit(Show{}, value); }

}  // namespace dralo::tests
