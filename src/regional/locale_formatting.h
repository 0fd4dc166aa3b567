#pragma once

#include <memory>
#include <string_view>

#include "platform/value_formatting.h"

namespace dralo::regional {

/// The regional settings of `locale`, for which everything stands that ChooseLocale() says of its setting:
/// empty for the locale of the environment. To be made once per process: it asks ICU for all that is needed,
/// a matter of milliseconds, and its texts then cost no more than writing the digits.
///
/// Text() of a double has up to 15 significant digits and an exponent below 0.00001 and from 1E+15
/// (NumberWriter); of a date-time, no fractions of a second. What RecognizeDate() and RecognizeNumber() take
/// is said at DateRecognizer and NumberRecognizer. Both accept any bytes and do not throw.
///
/// Throws platform::Error when the locale is not known.
std::unique_ptr<platform::ValueFormatting> MakeFormatting(std::string_view locale);

}  // namespace dralo::regional
