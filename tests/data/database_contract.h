#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/new_database.h"
#include "data/shorthand.h"
#include "dralo/type_code.h"

namespace dralo::tests {

/// What a database calls a type, and the type code of a column of it.
struct TypeOf {
  std::string name;
  platform::TypeCode code;
};

/// A database that the contract is tested with, and what is particular to it.
struct Database {
  std::string name;
  std::function<std::unique_ptr<NewDatabase>()> make;

  // The types of the table Goods.
  TypeOf identity;  ///< A primary key that the database numbers.
  TypeOf text;      ///< At most 20 characters.
  TypeOf decimal;   ///< Two digits behind the point.
  TypeOf small;
  TypeOf boolean;
  TypeOf date;
  TypeOf timestamp;  ///< With fractions of a second.
  TypeOf number;
  TypeOf long_text;
  TypeOf bytes;

  TypeOf time;
  TypeOf big;  ///< An integer of 64 bits.

  /// The number that the database gives next when records were added with numbers of their own.
  std::string continue_numbers_at_six = {};

  /// Decimals are read as they were stored; elsewhere they are numbers with a floating point.
  bool keeps_decimals = true;

  /// Records with equal sort keys have the same order whatever the record limit.
  bool orders_equal_keys_alike = true;

  /// Names that are not quoted are those in small letters.
  bool folds_names = false;

  char quote = '"';

  /// Texts can hold a zero byte; elsewhere they are refused.
  bool takes_zero_bytes = true;

  /// Yields the records of Goods in the order of ID, but fails at the third.
  std::string fails_at_three = {};

  /// Makes the procedure Cheaper, which yields the names of the goods that cost less than its parameter;
  /// empty when the database has no procedures.
  std::string create_procedure = {};

  /// Statements that leave traces in their session, each with one that another session runs before; and a
  /// query whose answer shows the traces.
  std::vector<std::pair<std::string, std::string>> traces = {};
  std::string shows_traces = {};

  /// Statements that end all other sessions of the database; yielded by `list_endings` where they have to be
  /// asked for.
  std::string list_endings = {};

  /// Behind the connection string, with what else the message must hold: why there is no connection.
  std::vector<std::pair<std::string, std::string>> wrong_settings = {};
};

inline std::ostream& operator<<(std::ostream& out, const Database& database) { return out << database.name; }

/// A test that runs once for every database, with the table Goods of five records.
class DatabaseContract : public ::testing::TestWithParam<Database> {
 protected:
  void SetUp() override {
    database_ = GetParam().make();
    connection_ = Connect(ConnectionString());
    const Database& types = GetParam();
    connection_->Execute("CREATE TABLE Goods (ID " + types.identity.name + ", Name " + types.text.name +
                         " NOT NULL, Price " + types.decimal.name + ", Stock " + types.small.name +
                         ", Active " + types.boolean.name + ", Born " + types.date.name + ", Seen " +
                         types.timestamp.name + ", Weight " + types.number.name + ", Note " +
                         types.long_text.name + ", Picture " + types.bytes.name + ")");
    connection_->Execute(
        "INSERT INTO Goods (ID, Name, Price, Stock, Active, Born, Seen, Weight, Note) VALUES "
        "(1, 'Anvil', 12.5, 3, TRUE, '2024-02-29', '2024-03-01 10:20:30', 99.5, 'heavy'), "
        "(2, 'Bell', 3, 10, FALSE, '1999-12-31', '2024-03-01 00:00:00', 0.25, NULL), "
        "(3, 'Candle', NULL, NULL, NULL, NULL, NULL, NULL, NULL), "
        "(4, 'Drum', 80, 1, TRUE, '2000-01-01', '2000-01-01 23:59:59', 7, 'loud'), "
        "(5, 'Easel', 45.75, 2, FALSE, '2010-10-10', '2010-10-10 01:01:01', 5.5, 'wooden')");
    if (!types.continue_numbers_at_six.empty()) connection_->Execute(types.continue_numbers_at_six);
  }

  std::string ConnectionString() const { return database_->ConnectionString(); }

  /// How `decimal`, written with all its digits, is read.
  static std::string Decimal(std::string_view decimal) {
    if (GetParam().keeps_decimals) return std::string(decimal) + "m";
    return Shown(std::stod(std::string(decimal)));
  }

  /// What the database makes of a name in a statement.
  static std::string Named(std::string name) {
    if (GetParam().folds_names) std::transform(name.begin(), name.end(), name.begin(), ::tolower);
    return name;
  }

  /// A name as it stands in a statement whatever characters it has.
  static std::string Quoted(std::string_view name) {
    std::string quoted(1, GetParam().quote);
    for (const char c : name) quoted.append(c == GetParam().quote ? 2 : 1, c);
    return quoted + GetParam().quote;
  }

  std::unique_ptr<NewDatabase> database_;
  ConnectionPtr connection_;
};

}  // namespace dralo::tests
