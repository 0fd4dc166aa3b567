#include "cells/number_functions.h"

#include <limits>

namespace dralo::cells {
namespace {

using platform::NumberOptions;
using platform::Tristate;

/// Any number but that of kDefault means yes or no.
Tristate TristateOf(const FormatArguments& arguments, std::size_t number) {
  using Limits = std::numeric_limits<std::int32_t>;
  const std::int32_t value =
      arguments.NumberOr(number, static_cast<int>(Tristate::kDefault), Limits::min(), Limits::max());
  if (value == static_cast<int>(Tristate::kDefault)) return Tristate::kDefault;
  return value == 0 ? Tristate::kFalse : Tristate::kTrue;
}

/// The result always is in `to`, because `decimal` may end with the input.
std::string_view StandardText(const FormatInput& input, std::string_view decimal, std::string& to) {
  std::string scratch;
  return to.assign(input.Regional().Text(platform::DecimalView{decimal}, scratch));
}

}  // namespace

CellFunction FormatNumber(const FormatArguments& arguments, platform::NumberKind kind) {
  const NumberOptions options{
      .digits = arguments.NumberOr(1, NumberOptions::kDefaultDigits, -1, NumberOptions::kMaxDigits),
      .leading_digit = TristateOf(arguments, 2),
      .parentheses = TristateOf(arguments, 3),
      .groups = TristateOf(arguments, 4)};
  return [kind, options](FormatInput& input, std::string& to) {
    return input.Regional().NumberText(input.Number(), kind, options, to);
  };
}

CellFunction Round(const FormatArguments& arguments) {
  const int digits = arguments.NumberOr(1, 0, 0, NumberOptions::kMaxDigits);
  return [digits](FormatInput& input, std::string& to) {
    return StandardText(input, input.Regional().Rounded(input.Number(), digits).text, to);
  };
}

CellFunction Abs(const FormatArguments& /*arguments*/) {
  return [](FormatInput& input, std::string& to) {
    std::string_view number = input.Number().text;
    if (number.starts_with('-')) number.remove_prefix(1);
    return StandardText(input, number, to);
  };
}

}  // namespace dralo::cells
