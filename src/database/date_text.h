#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "database/column.h"
#include "platform/date_time.h"

namespace dralo::database {

/// "YYYY-MM-DD", optionally followed by a blank or "T" and a time of day, optionally followed by "Z".
std::optional<platform::DateTime> ParseIsoDateTime(std::string_view text);

/// "HH:MM[:SS[.fraction]]" on the zero date. Digits after the ninth of the fraction do not count.
std::optional<platform::DateTime> ParseTimeOfDay(std::string_view text);

/// "YYYY-MM-DD".
std::string DateText(const platform::DateTime& time);

/// "HH:MM:SS", with the fraction of the second when there is one.
std::string TimeText(const platform::DateTime& time);

/// Both with a blank between.
std::string DateTimeText(const platform::DateTime& time);

/// The shortest of these that loses nothing: a time of day on the zero date, a date at midnight.
std::string PlainText(const platform::DateTime& time);

/// The one of these that a column with `parts` keeps.
std::string StoredText(const platform::DateTime& time, TimeParts parts);

}  // namespace dralo::database
