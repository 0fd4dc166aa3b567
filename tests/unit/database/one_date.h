#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/formatting.h"

namespace dralo::tests {

/// Regional settings that understand the date "3.2.2024" and nothing else.
class OneDate final : public platform::Formatting {
 public:
  std::string_view Text(const platform::VariantView& /*value*/, std::string& /*scratch*/) const override {
    return {};
  }
  std::optional<platform::DateTime> RecognizeDate(std::string_view text) const override {
    return text == "3.2.2024" ? std::optional(platform::DateTime{2024, 2, 3}) : std::nullopt;
  }
  std::optional<platform::Decimal> RecognizeNumber(std::string_view /*text*/) const override {
    return std::nullopt;
  }
};

}  // namespace dralo::tests
