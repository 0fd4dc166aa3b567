#include "database/odbc/dialect.h"

#include <algorithm>
#include <string>

#include "text/ascii.h"

namespace dralo::database::odbc {

namespace {

using platform::TypeCode;

constexpr std::string_view kLimitAndOffset = "\nLIMIT ? OFFSET ?";

/// Exact types, and texts of any length.
constexpr DriverSetting kPostgreSqlSettings[] = {
    {"BoolsAsChar", "0"},          {"TextAsLongVarchar", "1"},     {"UnknownsAsLongVarchar", "1"},
    {"UnknownSizes", "0"},         {"MaxVarcharSize", "10485760"}, {"MaxLongVarcharSize", "10485761"},
    {"ByteaAsLongVarBinary", "1"}, {"LFConversion", "0"},          {"TrueIsMinus1", "0"},
    {"UpdatableCursors", "0"},     {"UseServerSidePrepare", "1"}};

constexpr std::string_view kPostgreSqlDatabases[] = {"POSTGRESQL"};
constexpr std::string_view kPostgreSqlDrivers[] = {"PSQLODBC"};
constexpr std::string_view kPostgreSqlSized[] = {"varchar", "bpchar", "char", "name"};

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
     .types = kPostgreSqlRules,
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
     .types = kMariaDbRules,
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
