#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dralo::database {

/// Whether `text` is an optional "-", digits, and optionally "." and digits.
bool IsPlainDecimal(std::string_view text);

/// The number that `text` spells with "." as its decimal point, exactly, in its shortest plain form: blanks
/// around it, a sign and an exponent are understood; "007.50" and "75e-1" yield "7.5". Nothing when it is no
/// number or has more than 400 digits.
std::optional<std::string> ParseDecimal(std::string_view text);

/// The shortest plain form that reads back as `number`. Nothing for infinities and not-a-number.
std::optional<std::string> DecimalText(double number);

}  // namespace dralo::database
