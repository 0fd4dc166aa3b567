#include "state/request_number.h"

#include <limits>
#include <optional>
#include <string>

#include "dralo/error.h"
#include "text/decimal.h"

namespace dralo::state {
namespace {

/// `decimal` rounded half to even; nothing when it does not fit into 64 bits.
std::optional<std::int64_t> Rounded(std::string_view decimal) {
  const std::size_t point = decimal.find('.');
  const std::string_view whole = decimal.substr(0, point);
  const auto parsed = text::ParseNumber<std::int64_t>(whole);
  if (!parsed || point == decimal.npos) return parsed;

  const std::int64_t number = *parsed;
  const std::string_view fraction = decimal.substr(point + 1);
  const bool half = fraction.starts_with('5') && fraction.find_first_not_of('0', 1) == fraction.npos;
  const bool up = half ? number % 2 != 0 : fraction.starts_with('5') || fraction.find_first_of("6789") == 0;
  if (!up) return number;
  const bool negative = decimal.starts_with('-');
  if (number ==
      (negative ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max())) {
    return std::nullopt;
  }
  return negative ? number - 1 : number + 1;
}

std::optional<std::int64_t> ToInt64(const platform::Formatting& formatting,
                                    const platform::VariantView& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) return *number;
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? -1 : 0;
  if (const auto* decimal = std::get_if<platform::DecimalView>(&value)) return Rounded(decimal->text);
  std::string scratch;
  const auto recognized = formatting.RecognizeNumber(formatting.Text(value, scratch));
  return recognized ? Rounded(recognized->text) : std::nullopt;
}

template <class Integer>
Integer ToInteger(const platform::Formatting& formatting, const platform::VariantView& value,
                  std::string_view what) {
  const auto number = ToInt64(formatting, value);
  using Limits = std::numeric_limits<Integer>;
  if (number && *number >= Limits::min() && *number <= Limits::max()) return static_cast<Integer>(*number);
  throw platform::Error(std::string(what) + " must be a whole number from " + std::to_string(Limits::min()) +
                        " to " + std::to_string(Limits::max()));
}

}  // namespace

std::int32_t ToInt32(const platform::Formatting& formatting, const platform::VariantView& value,
                     std::string_view what) {
  return ToInteger<std::int32_t>(formatting, value, what);
}

std::int16_t ToInt16(const platform::Formatting& formatting, const platform::VariantView& value,
                     std::string_view what) {
  return ToInteger<std::int16_t>(formatting, value, what);
}

}  // namespace dralo::state
