#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "dralo/field.h"
#include "dralo/type_code.h"

namespace dralo::database {

/// What a date-time column keeps of a value.
enum class TimeParts { kDateAndTime, kDate, kTime };

/// What the database tells about one column of a result.
struct Column {
  std::string name = {};
  platform::TypeCode type = platform::TypeCode::kVarWideChar;

  /// Whether the table declares `type`; if not, the first value of the result decides.
  bool has_declared_type = false;

  bool is_nullable = true;

  /// Whether the database numbers it by itself, as far as that is known without asking about the table.
  bool is_numbered = false;

  /// Characters of a text column; 0 when none are declared.
  std::int64_t defined_size = 0;

  TimeParts time_parts = TimeParts::kDateAndTime;

  /// An integer column that holds 64 bits whatever its type code says.
  bool holds_64_bits = false;

  /// See platform::Field::Comparison().
  platform::KeyComparison comparison = nullptr;

  /// The column of a table that this one shows, unquoted; all three are empty for an expression.
  std::string origin_database = {};
  std::string origin_table = {};
  std::string origin = {};

  friend bool operator==(const Column&, const Column&) = default;
};

using Columns = std::vector<Column>;

}  // namespace dralo::database
