#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "dralo/date_time.h"

/// Dates and times in the form of ISO 8601, which is the same under all regional settings.
namespace dralo::text {

/// "YYYY-MM-DD", optionally followed by a blank or "T" and a time of day, optionally followed by "Z".
std::optional<platform::DateTime> ParseIsoDateTime(std::string_view text);

/// The same, into `time`, which must have its default value. Returns false, and leaves any value there, when
/// the text is something else. Faster where the result lies in memory anyway.
bool ParseIsoDateTime(std::string_view text, platform::DateTime& time);

/// "HH:MM[:SS[.fraction]]" on the zero date. Digits of the fraction after the ninth are ignored.
std::optional<platform::DateTime> ParseTimeOfDay(std::string_view text);

/// Appends "YYYY-MM-DD" of a valid date.
void PutDate(const platform::DateTime& time, std::string& to);

/// Appends "HH:MM:SS", with the fraction of the second when there is one.
void PutTimeOfDay(const platform::DateTime& time, std::string& to);

/// Appends the date and, unless it is midnight, a blank and the time of day.
void PutDateTime(const platform::DateTime& time, std::string& to);

}  // namespace dralo::text
