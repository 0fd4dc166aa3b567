#pragma once

#include <string>
#include <string_view>

/// Conditions for values that are not found by "name=number" or "name='text'"; see platform::KeyComparison.
namespace dralo::database {

/// PostgreSQL compares its booleans with texts, not with numbers.
std::string SameBoolean(std::string_view name, std::string_view text);

/// PostgreSQL: as text the number would be read in the form of the server's locale.
std::string SameMoney(std::string_view name, std::string_view text);

/// PostgreSQL: the decimal number is another one until it is rounded as the column's values are. Also NaN and
/// the infinities.
std::string SameReal(std::string_view name, std::string_view text);

/// PostgreSQL: NaN and the infinities, which only texts name.
std::string SameUnlimited(std::string_view name, std::string_view text);

/// MariaDB prints a FLOAT with fewer digits than it has: those that print alike are alike.
std::string SamePrintedNumber(std::string_view name, std::string_view text);

/// SQLite: every way to store the date, or date and time, as a text or as seconds.
std::string SameMoment(std::string_view name, std::string_view text);

/// SQLite: every way to store the time of day.
std::string SameTimeOfDay(std::string_view name, std::string_view text);

/// SQLite, in a column without a type: numbers and texts are of different kinds there.
std::string SameOfAnyKind(std::string_view name, std::string_view text);

}  // namespace dralo::database
