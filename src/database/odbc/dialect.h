#pragma once

#include <span>
#include <string_view>

#include "database/type_rules.h"

namespace dralo::database::odbc {

/// A key of the connection string that the driver needs; the author's own value wins.
struct DriverSetting {
  std::string_view key;
  std::string_view value;
};

/// What a database does in its own way; everything else is done as the standard of ODBC says. This is the
/// only place where databases behind ODBC are told apart.
struct Dialect {
  /// Parts, in capitals, of the name that a connected driver gives for its database, and of the name of the
  /// driver's file.
  std::span<const std::string_view> databases = {};
  std::span<const std::string_view> drivers = {};

  std::span<const DriverSetting> settings = {};

  /// Limits every statement of the connection to "#" seconds, when the driver does not do so when it is told;
  /// "" when it does.
  std::string_view time_limit = {};

  /// Appended to a query of which only "?" rows after "?" others are wanted; "" when the database has no such
  /// clause.
  std::string_view limit = {};

  /// A query of one row with the number 1.
  std::string_view probe = "SELECT 1";

  /// Statements that begin, undo and end the part "#" of a transaction. "" when nothing ends it.
  std::string_view savepoint = "SAVEPOINT #";
  std::string_view rollback = "ROLLBACK TO SAVEPOINT #";
  std::string_view release = "RELEASE SAVEPOINT #";

  /// Appended to a query whose rows nobody else may change before the transaction ends.
  std::string_view row_lock = {};

  /// Asks for the number that the database gave last, in the column "$" of the table "#", both as texts.
  std::string_view last_number = "SELECT @@IDENTITY";

  /// What follows the table in an INSERT of default values.
  std::string_view defaults = " DEFAULT VALUES";

  TypeRules types = {};

  /// The name of the type of amounts, which are read with the signs of a currency.
  std::string_view money = {};

  /// The names of the types whose texts have the size that the driver reports; empty for all.
  std::span<const std::string_view> sized_types = {};

  /// A prepared statement fails when its tables have changed, so it can be kept. Elsewhere the driver might
  /// read its rows by the columns of before.
  bool notices_changes = false;

  /// Texts end at a zero byte.
  bool ends_texts_at_zero = false;

  /// Dates and times are texts, and compare as such.
  bool has_text_dates = false;

  /// The driver takes a name that a query gives to a field for the name of a column.
  bool confuses_given_names = false;
};

/// By the name that a connected driver gives for its database. Lives as long as the process.
const Dialect& DialectOf(std::string_view database);

/// By the driver's file, before it is connected.
const Dialect& DialectOfDriver(std::string_view library);

}  // namespace dralo::database::odbc
