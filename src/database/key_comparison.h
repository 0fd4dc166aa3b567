#pragma once

#include <string>
#include <string_view>

/// Conditions for values that are not found by "name=number" or "name='text'"; see platform::KeyComparison.
namespace dralo::database {

/// PostgreSQL compares its booleans with texts, not with numbers.
std::string SameBoolean(std::string_view name, std::string_view text);

/// PostgreSQL: a text would be read as an amount in the form of the server's locale.
std::string SameMoney(std::string_view name, std::string_view text);

/// PostgreSQL: the decimal number differs from the stored one until it is rounded like the column's values.
/// Also NaN and the infinities.
std::string SameReal(std::string_view name, std::string_view text);

/// PostgreSQL: NaN and the infinities, which can be written only as texts.
std::string SameUnlimited(std::string_view name, std::string_view text);

/// MariaDB prints a FLOAT with fewer digits than it has: values that print alike count as equal.
std::string SamePrintedNumber(std::string_view name, std::string_view text);

/// SQLite: every way to store the date, or date and time, as a text or as seconds.
std::string SameMoment(std::string_view name, std::string_view text);

/// SQLite: every way to store the time of day.
std::string SameTimeOfDay(std::string_view name, std::string_view text);

/// SQLite, in a column without a type: there numbers and texts are never equal.
std::string SameOfAnyKind(std::string_view name, std::string_view text);

}  // namespace dralo::database
