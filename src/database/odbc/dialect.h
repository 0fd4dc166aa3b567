#pragma once

#include <span>
#include <string_view>

#include "dralo/field.h"
#include "dralo/type_code.h"

namespace dralo::database::odbc {

/// Values of a type that the database does not compare as they are. "#" stands for the column.
struct TypeRule {
  platform::TypeCode type;

  /// The condition that the column has exactly the value of "?", told apart also from values that only sort
  /// or count as equal; "" is "# = ?".
  std::string_view same = {};

  /// The condition that the column has a value that is read as Null; "" is "# IS NULL".
  std::string_view none = {};

  /// See platform::Field::Comparison().
  platform::KeyComparison comparison = nullptr;
};

/// A key of the connection string that the driver needs, unless the author gives it.
struct DriverSetting {
  std::string_view key;
  std::string_view value;
};

/// What a database does in its own way; everything else is done as the standard of ODBC has it. This is the
/// only place where databases behind ODBC have names.
struct Dialect {
  /// Parts, in capitals, of the name that a connected driver gives of its database, and of the driver's file.
  std::span<const std::string_view> databases = {};
  std::span<const std::string_view> drivers = {};

  std::span<const DriverSetting> settings = {};

  /// Limits every statement of the connection to "#" seconds, where the driver does not do it when it is
  /// told; "" where it does.
  std::string_view time_limit = {};

  /// What ends a query of which "?" rows behind "?" others are wanted; "" where there is no such end.
  std::string_view limit = {};

  /// A query of one row with the number 1.
  std::string_view probe = "SELECT 1";

  /// Begin, undo and end the part "#" of a transaction. Nothing ends it where that is "".
  std::string_view savepoint = "SAVEPOINT #";
  std::string_view rollback = "ROLLBACK TO SAVEPOINT #";
  std::string_view release = "RELEASE SAVEPOINT #";

  /// What is behind a query whose rows nobody else may change before the transaction ends.
  std::string_view row_lock = {};

  /// The number that the database gave last, in the column "$" of the table "#", both as texts.
  std::string_view last_number = "SELECT @@IDENTITY";

  /// What is behind the table of an INSERT of default values.
  std::string_view defaults = " DEFAULT VALUES";

  std::span<const TypeRule> types = {};

  /// The name of the type of amounts, which come with the signs of a currency.
  std::string_view money = {};

  /// The names of the types whose texts have the size that the driver tells; empty for all.
  std::span<const std::string_view> sized_types = {};

  /// A statement that was prepared for tables which were changed since fails, so that it can be kept.
  /// Elsewhere the driver may read its rows by the columns that there were.
  bool notices_changes = false;

  /// Texts end at a zero byte.
  bool ends_texts_at_zero = false;

  /// Dates and times are texts, and compare as such.
  bool has_text_dates = false;

  /// The driver takes a name that a query gives to a field for that of a column.
  bool confuses_given_names = false;
};

/// By the name that a connected driver gives of its database. Lives as long as the process.
const Dialect& DialectOf(std::string_view database);

/// By the file of the driver, before it is connected.
const Dialect& DialectOfDriver(std::string_view library);

}  // namespace dralo::database::odbc
