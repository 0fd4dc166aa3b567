#include "database/odbc/dialect.h"

#include <algorithm>
#include <string>

#include "database/key_comparison.h"
#include "text/ascii.h"

namespace dralo::database::odbc {

namespace {

using platform::TypeCode;

constexpr std::string_view kLimitAndOffset = "\nLIMIT ? OFFSET ?";

/// Documents (json, xml) have no order, and addresses (inet) look different as "text" from what is read;
/// concat() writes every type as it is read. Padded texts lose their blanks as "text".
constexpr TypeRule kPostgreSqlTypes[] = {
    {.type = TypeCode::kSingle, .same = "# = CAST(? AS real)", .comparison = SameReal},
    {.type = TypeCode::kCurrency, .same = "# = CAST(CAST(? AS numeric) AS money)", .comparison = SameMoney},
    {.type = TypeCode::kVarWideChar, .same = "concat(#) = CAST(? AS text)"},
    {.type = TypeCode::kLongVarWideChar, .same = "concat(#) = CAST(? AS text)"},
    {.type = TypeCode::kWideChar, .same = "CAST(# AS bpchar) = CAST(? AS bpchar)"},
    {.type = TypeCode::kBoolean, .comparison = SameBoolean},
    {.type = TypeCode::kDouble, .comparison = SameUnlimited},
    {.type = TypeCode::kNumeric, .comparison = SameUnlimited},
};

/// Exact types, and texts of any length.
constexpr DriverSetting kPostgreSqlSettings[] = {
    {"BoolsAsChar", "0"},          {"TextAsLongVarchar", "1"},     {"UnknownsAsLongVarchar", "1"},
    {"UnknownSizes", "0"},         {"MaxVarcharSize", "10485760"}, {"MaxLongVarcharSize", "10485761"},
    {"ByteaAsLongVarBinary", "1"}, {"LFConversion", "0"},          {"TrueIsMinus1", "0"},
    {"UpdatableCursors", "0"},     {"UseServerSidePrepare", "1"}};

constexpr std::string_view kPostgreSqlDatabases[] = {"POSTGRESQL"};
constexpr std::string_view kPostgreSqlDrivers[] = {"PSQLODBC"};
constexpr std::string_view kPostgreSqlSized[] = {"varchar", "bpchar", "char", "name"};

/// Texts compare without regard to letter case and accents.
constexpr std::string_view kSameBytes =
    "CAST(CONVERT(# USING utf8mb4) AS BINARY) = CAST(CONVERT(? USING utf8mb4) AS BINARY)";

/// Dates that no calendar has, such as 0000-00-00, are stored, and read as Null.
constexpr std::string_view kNoDay =
    "(# IS NULL OR YEAR(#) = 0 OR MONTH(#) = 0 OR DAYOFMONTH(#) NOT BETWEEN 1 AND "
    "DAYOFMONTH(LAST_DAY(DATE_FORMAT(#, '%Y-%m-01'))))";

/// A single-precision number has other last digits than the double that it is read as; bits compare as a
/// number.
constexpr TypeRule kMariaDbTypes[] = {
    {.type = TypeCode::kSingle, .same = "CAST(# AS CHAR) = CAST(? AS CHAR)", .comparison = SamePrintedNumber},
    {.type = TypeCode::kBinary, .same = "CAST(# AS BINARY) = ?"},
    {.type = TypeCode::kWideChar, .same = kSameBytes},
    {.type = TypeCode::kVarWideChar, .same = kSameBytes},
    {.type = TypeCode::kLongVarWideChar, .same = kSameBytes},
    {.type = TypeCode::kDbDate, .none = kNoDay},
    {.type = TypeCode::kDbTimestamp, .none = kNoDay},
};

/// The driver takes the timeouts in no other way.
constexpr DriverSetting kMariaDbSettings[] = {
    {"CHARSET", "utf8mb4"}, {"CONN_TIMEOUT", "#"}, {"READ_TIMEOUT", "$"}, {"WRITE_TIMEOUT", "$"}};
constexpr std::string_view kMariaDbDatabases[] = {"MARIADB", "MYSQL"};
constexpr std::string_view kMariaDbDrivers[] = {"MAODBC", "MYODBC"};

/// The driver reads numbers as the texts that the database makes of them, with 15 digits.
constexpr TypeRule kSqliteTypes[] = {
    {.type = TypeCode::kDouble, .same = "CAST(# AS TEXT) = CAST(? AS TEXT)"},
    {.type = TypeCode::kWideChar, .same = "# COLLATE BINARY = ?"},
    {.type = TypeCode::kVarWideChar, .same = "# COLLATE BINARY = ?"},
    {.type = TypeCode::kLongVarWideChar, .same = "# COLLATE BINARY = ?"},
    {.type = TypeCode::kDbDate, .same = "julianday(#) = julianday(?)", .comparison = SameMoment},
    {.type = TypeCode::kDbTimestamp, .same = "julianday(#) = julianday(?)", .comparison = SameMoment},
    {.type = TypeCode::kDbTime, .same = "julianday(#) = julianday(?)", .comparison = SameTimeOfDay},
};

constexpr std::string_view kSqliteDatabases[] = {"SQLITE"};

constexpr std::string_view kSameUnits =
    "CAST(# AS nvarchar(max)) COLLATE Latin1_General_BIN2 = CAST(? AS nvarchar(max))";

constexpr TypeRule kSqlServerTypes[] = {
    {.type = TypeCode::kWideChar, .same = kSameUnits},
    {.type = TypeCode::kVarWideChar, .same = kSameUnits},
    {.type = TypeCode::kLongVarWideChar, .same = kSameUnits},
    {.type = TypeCode::kLongVarBinary, .same = "CAST(# AS varbinary(max)) = ?"},
};

constexpr std::string_view kSqlServerDatabases[] = {"SQL SERVER"};
constexpr std::string_view kSqlServerDrivers[] = {"TDSODBC", "MSODBCSQL"};

constexpr TypeRule kOracleTypes[] = {
    {.type = TypeCode::kLongVarWideChar, .same = "DBMS_LOB.COMPARE(#, ?) = 0"},
    {.type = TypeCode::kLongVarBinary, .same = "DBMS_LOB.COMPARE(#, ?) = 0"},
};

constexpr std::string_view kOracleDatabases[] = {"ORACLE"};
constexpr std::string_view kOracleDrivers[] = {"SQORA"};

constexpr std::string_view kForUpdate = " FOR UPDATE";

constexpr Dialect kStandard;

constexpr Dialect kDialects[] = {
    {.databases = kPostgreSqlDatabases,
     .drivers = kPostgreSqlDrivers,
     .settings = kPostgreSqlSettings,
     .limit = kLimitAndOffset,
     .row_lock = kForUpdate,
     .last_number = "SELECT currval(pg_get_serial_sequence(#, $))",
     .types = kPostgreSqlTypes,
     .money = "money",
     .sized_types = kPostgreSqlSized,
     .notices_changes = true,
     .ends_texts_at_zero = true},
    {.databases = kMariaDbDatabases,
     .drivers = kMariaDbDrivers,
     .settings = kMariaDbSettings,
     .time_limit = "SET SESSION max_statement_time=#",
     .limit = kLimitAndOffset,
     .row_lock = kForUpdate,
     .last_number = "SELECT LAST_INSERT_ID()",
     .defaults = " () VALUES ()",
     .types = kMariaDbTypes,
     .ends_texts_at_zero = true},
    {.databases = kSqliteDatabases,
     .drivers = kSqliteDatabases,
     .limit = kLimitAndOffset,
     .last_number = "SELECT last_insert_rowid()",
     .types = kSqliteTypes,
     .ends_texts_at_zero = true,
     .has_text_dates = true,
     .confuses_given_names = true},
    {.databases = kSqlServerDatabases,
     .drivers = kSqlServerDrivers,
     .savepoint = "SAVE TRANSACTION #",
     .rollback = "ROLLBACK TRANSACTION #",
     .release = "",
     .types = kSqlServerTypes},
    {.databases = kOracleDatabases,
     .drivers = kOracleDrivers,
     .probe = "SELECT 1 FROM DUAL",
     .release = "",
     .row_lock = kForUpdate,
     .types = kOracleTypes},
};

const Dialect& Find(std::span<const std::string_view> Dialect::*parts, std::string_view text) {
  std::string capitals(text);
  for (char& c : capitals) c = text::ToUpper(c);
  const auto is_named = [&](std::string_view part) { return capitals.find(part) != capitals.npos; };
  for (const Dialect& dialect : kDialects) {
    if (std::ranges::any_of(dialect.*parts, is_named)) return dialect;
  }
  return kStandard;
}

}  // namespace

const Dialect& DialectOf(std::string_view database) { return Find(&Dialect::databases, database); }

const Dialect& DialectOfDriver(std::string_view library) {
  const auto slash = library.rfind('/');
  return Find(&Dialect::drivers, slash == library.npos ? library : library.substr(slash + 1));
}

}  // namespace dralo::database::odbc
