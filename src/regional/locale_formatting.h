#pragma once

#include <memory>
#include <string_view>

#include "platform/value_formatting.h"

namespace dralo::regional {

/// The regional settings of `locale`, which is read as ChooseLocale() reads its setting: empty for the locale
/// of the environment. To be made once per process: it takes milliseconds to ask ICU for all that is needed,
/// and then texts cost no more than writing the digits.
///
/// Text() of a double has up to 15 significant digits, and an exponent below 0.00001 and from 1E+15
/// (NumberWriter); that of a date-time has no fractions of a second. DateRecognizer and NumberRecognizer say
/// what RecognizeDate() and RecognizeNumber() accept. Both take any bytes and do not throw.
///
/// Throws platform::Error when the locale is not known.
std::unique_ptr<platform::ValueFormatting> MakeFormatting(std::string_view locale);

}  // namespace dralo::regional
