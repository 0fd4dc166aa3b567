#pragma once

#include <span>
#include <string>
#include <string_view>

#include "database/column.h"
#include "database/key_comparison.h"
#include "dralo/field.h"
#include "dralo/type_code.h"

namespace dralo::database {

/// How values of a type are compared which the database does not compare exactly. "#" stands for the column.
struct TypeRule {
  platform::TypeCode type;

  /// The condition that the column has exactly the value of "?", and not one that only sorts or counts as
  /// equal; "" means "# = ?".
  std::string_view same = {};

  /// The condition that the column has a value that is read as Null; "" means "# IS NULL".
  std::string_view none = {};

  /// See platform::Field::Comparison().
  platform::KeyComparison comparison = nullptr;
};

using TypeRules = std::span<const TypeRule>;

/// The rule for a type; one with nothing in it when there is none.
TypeRule RuleOf(TypeRules rules, platform::TypeCode type);

/// The condition that a column still has the value that it was read with: exactly that of a parameter "?",
/// or, with `was_null`, one that is read as Null.
std::string Unchanged(TypeRules rules, const Column& column, std::string_view quoted_column, bool was_null);

/// Documents (json, xml) have no order, and addresses (inet) look different as "text" from what is read;
/// concat() writes every type as it is read. Padded texts lose their blanks as "text". The comparisons are
/// for values as a driver reads them.
inline constexpr TypeRule kPostgreSqlRules[] = {
    {.type = platform::TypeCode::kSingle, .same = "# = CAST(? AS real)", .comparison = SameReal},
    {.type = platform::TypeCode::kCurrency,
     .same = "# = CAST(CAST(? AS numeric) AS money)",
     .comparison = SameMoney},
    {.type = platform::TypeCode::kVarWideChar, .same = "concat(#) = CAST(? AS text)"},
    {.type = platform::TypeCode::kLongVarWideChar, .same = "concat(#) = CAST(? AS text)"},
    {.type = platform::TypeCode::kWideChar, .same = "CAST(# AS bpchar) = CAST(? AS bpchar)"},
    {.type = platform::TypeCode::kBoolean, .comparison = SameBoolean},
    {.type = platform::TypeCode::kDouble, .comparison = SameUnlimited},
    {.type = platform::TypeCode::kNumeric, .comparison = SameUnlimited},
};

/// Texts compare without regard to letter case and accents.
inline constexpr std::string_view kSameBytes =
    "CAST(CONVERT(# USING utf8mb4) AS BINARY) = CAST(CONVERT(? USING utf8mb4) AS BINARY)";

/// Dates that no calendar has, such as 0000-00-00, are stored, and read as Null.
inline constexpr std::string_view kNoDay =
    "(# IS NULL OR YEAR(#) = 0 OR MONTH(#) = 0 OR DAYOFMONTH(#) NOT BETWEEN 1 AND "
    "DAYOFMONTH(LAST_DAY(DATE_FORMAT(#, '%Y-%m-01'))))";

/// A single-precision number has other last digits than the double that it is read as; bits (BIT(8)) compare
/// as a number.
inline constexpr TypeRule kMariaDbRules[] = {
    {.type = platform::TypeCode::kSingle,
     .same = "CAST(# AS CHAR) = CAST(? AS CHAR)",
     .comparison = SamePrintedNumber},
    {.type = platform::TypeCode::kBinary, .same = "CAST(# AS BINARY) = ?"},
    {.type = platform::TypeCode::kWideChar, .same = kSameBytes},
    {.type = platform::TypeCode::kVarWideChar, .same = kSameBytes},
    {.type = platform::TypeCode::kLongVarWideChar, .same = kSameBytes},
    {.type = platform::TypeCode::kDbDate, .none = kNoDay},
    {.type = platform::TypeCode::kDbTimestamp, .none = kNoDay},
};

}  // namespace dralo::database
