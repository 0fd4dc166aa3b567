#pragma once

#include <string>

#include "database/column.h"
#include "dralo/date_time.h"

namespace dralo::database {

/// "YYYY-MM-DD".
std::string DateText(const platform::DateTime& time);

/// "HH:MM:SS", with the fraction of the second when there is one.
std::string TimeText(const platform::DateTime& time);

/// The shortest text that loses nothing: a time of day on the zero date, a date at midnight, otherwise both.
std::string PlainText(const platform::DateTime& time);

/// The text that a column with `parts` keeps; a blank stands between date and time.
std::string StoredText(const platform::DateTime& time, TimeParts parts);

}  // namespace dralo::database
