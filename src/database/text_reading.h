#pragma once

#include <string_view>

#include "dralo/variant.h"
#include "text/decimal.h"

/// Values of the texts that databases write for them. A text that is no such value stays a text.
namespace dralo::database {

template <class Number>
platform::VariantView ReadNumber(std::string_view text) {
  const auto number = text::ParseNumber<Number>(text);
  return number ? platform::VariantView(*number) : text;
}

inline platform::VariantView ReadDecimal(std::string_view text) {
  return text::IsPlainDecimal(text) ? platform::VariantView(platform::DecimalView{text}) : text;
}

/// A day, perhaps with a time of day. One that is not in the calendar stays a text.
platform::VariantView ReadDate(std::string_view text);

platform::VariantView ReadTimeOfDay(std::string_view text);

}  // namespace dralo::database
