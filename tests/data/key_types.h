#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dralo/type_code.h"

namespace dralo::tests {

/// A type of key columns and, as SQL literals, keys that are easily taken for another.
struct KeyType {
  std::string name;
  platform::TypeCode code;
  std::vector<std::string> keys;
  bool can_be_declared = true;  ///< As a primary key.
};

using platform::TypeCode;

inline const std::vector<std::string> kWhole = {"5", "-7", "0"};

inline const std::vector<std::string> kTexts = {"'O''Neil'", "'a,b'", "'Zoë 🙂'", "'say \"x\"'",
                                                "'100%+'"};

inline const std::string kUuid = "'01234567-89ab-cdef-0123-456789abcdef'";

inline const std::vector<std::string> kTimes = {"'04:05:06'", "'00:00:00'", "'16:05:06.25'", "'16:05:06'"};

inline const std::vector<std::string> kMoments = {"'2024-05-03 00:00:00'", "'2024-05-03 10:20:30'",
                                                  "'2024-05-03 10:20:30.25'", "'2024-05-03 10:20:30.125'",
                                                  "'2024-05-04 00:00:00'"};

inline const std::vector<std::string> kSqliteMoments = {"'2024-05-03'",
                                                        "'2024-05-03 10:20:30'",
                                                        "'2024-05-03 10:20:30.250'",
                                                        "'2024-05-04 00:00:00'",
                                                        "'2024-05-05T10:20:30'",
                                                        "'2024-05-05T10:20:30.500Z'",
                                                        "1714900000",
                                                        "'2024-05-06 10:20'",
                                                        "'1999-12-31 23:59:59.123456'",
                                                        "'1899-12-30 12:00:00'",
                                                        "'2024-05-07 00:00:00.000'"};

inline const std::vector<KeyType> kSqliteKeys = {
    {"TINYINT", TypeCode::kTinyInt, kWhole},
    {"SMALLINT", TypeCode::kSmallInt, kWhole},
    {"INTEGER", TypeCode::kInteger, {"5", "-7", "9223372036854775807"}},
    {"BIGINT", TypeCode::kBigInt, {"5", "-9223372036854775808"}},
    {"REAL", TypeCode::kDouble, {"0.1", "1.5", "1e22", "123456.789", "2"}},
    {"MONEY", TypeCode::kCurrency, {"12.5", "3", "1234567.89"}},
    {"DECIMAL(10,2)", TypeCode::kNumeric, {"1.5", "-0.25", "100"}},
    {"BOOLEAN", TypeCode::kBoolean, {"1", "0"}},
    {"DATE", TypeCode::kDate, {"'2024-05-03'", "'2024-05-04 00:00:00'", "'2024-05-03 10:20:30'"}},
    {"DATETIME", TypeCode::kDate, kSqliteMoments},
    {"TIME", TypeCode::kDbTime, {"'04:05:06'", "'00:00:00'", "'16:05:06.250'", "'16:05:06'", "'07:30'"}},
    {"UUID", TypeCode::kGuid, {kUuid, "'x'"}},
    {"CHAR(8)", TypeCode::kVarWideChar, kTexts},
    {"TEXT", TypeCode::kLongVarWideChar, kTexts},
    {"", TypeCode::kBigInt, {"5", "'x'", "1.5", "'7'"}, false},
};

inline const std::vector<KeyType> kPostgreSqlKeys = {
    {"SMALLINT", TypeCode::kSmallInt, kWhole},
    {"INTEGER", TypeCode::kInteger, kWhole},
    {"BIGINT", TypeCode::kBigInt, {"5", "-9223372036854775808"}},
    {"REAL", TypeCode::kSingle, {"0.1", "1.5", "1e20", "0.333333343", "'NaN'", "'-Infinity'"}},
    {"DOUBLE PRECISION",
     TypeCode::kDouble,
     {"0.1", "1.5", "1e22", "0.3333333333333333", "'NaN'", "'Infinity'", "'-Infinity'"}},
    {"NUMERIC", TypeCode::kNumeric, {"1.5", "'NaN'", "'Infinity'"}},
    {"NUMERIC(10,2)", TypeCode::kNumeric, {"1.5", "-0.25", "100"}},
    {"MONEY", TypeCode::kCurrency, {"12.5::numeric", "3::numeric", "-1234567.89::numeric"}},
    {"BOOLEAN", TypeCode::kBoolean, {"TRUE", "FALSE"}},
    {"DATE", TypeCode::kDbDate, {"'2024-05-03'", "'1999-12-31'"}},
    {"TIMESTAMP", TypeCode::kDbTimestamp, kMoments},
    {"TIME", TypeCode::kDbTime, kTimes},
    {"UUID", TypeCode::kGuid, {kUuid}},
    {"CHAR(1)", TypeCode::kWideChar, {"'a'", "'A'"}},
    {"VARCHAR(20)", TypeCode::kVarWideChar, kTexts},
    {"TEXT", TypeCode::kLongVarWideChar, kTexts},
};

/// Numbers that are none.
inline const std::vector<KeyType> kPostgreSqlNumbers = {
    {"REAL", TypeCode::kSingle, {"'NaN'", "0.1", "'Infinity'", "'-Infinity'"}},
    {"DOUBLE PRECISION", TypeCode::kDouble, {"'NaN'", "0.1", "'Infinity'", "'-Infinity'"}},
    {"NUMERIC", TypeCode::kNumeric, {"'NaN'", "0.1", "'Infinity'", "'-Infinity'"}},
};

inline const std::vector<KeyType> kMariaDbKeys = {
    {"TINYINT", TypeCode::kTinyInt, kWhole},
    {"TINYINT UNSIGNED", TypeCode::kUnsignedTinyInt, {"5", "200"}},
    {"SMALLINT", TypeCode::kSmallInt, kWhole},
    {"SMALLINT UNSIGNED", TypeCode::kUnsignedSmallInt, {"5", "60000"}},
    {"INTEGER", TypeCode::kInteger, kWhole},
    {"INTEGER UNSIGNED", TypeCode::kUnsignedInt, {"5", "4000000000"}},
    {"BIGINT", TypeCode::kBigInt, {"5", "-9223372036854775808"}},
    {"BIGINT UNSIGNED", TypeCode::kUnsignedBigInt, {"5", "18446744073709551615"}},
    {"FLOAT", TypeCode::kSingle, {"0.1", "1.5", "123456"}},
    {"DOUBLE", TypeCode::kDouble, {"0.1", "1.5", "0.3333333333333333"}},
    {"DECIMAL(10,2)", TypeCode::kNumeric, {"1.5", "-0.25", "100"}},
    {"BIT(1)", TypeCode::kBoolean, {"1", "0"}},
    {"DATE", TypeCode::kDbDate, {"'2024-05-03'", "'1999-12-31'"}},
    {"DATETIME(6)", TypeCode::kDbTimestamp, kMoments},
    {"TIME(6)", TypeCode::kDbTime, kTimes},
    {"CHAR(20)", TypeCode::kWideChar, kTexts},
    {"VARCHAR(20)", TypeCode::kVarWideChar, kTexts},
    {"LONGTEXT", TypeCode::kLongVarWideChar, kTexts, false},
};

inline std::vector<KeyType> KeyTypesOf(std::string_view database) {
  if (database == "Sqlite") return kSqliteKeys;
  if (database.starts_with("MariaDb")) return kMariaDbKeys;
  std::vector<KeyType> types = kPostgreSqlKeys;
  if (database == "PostgreSql") {
    types.insert(types.end(), kPostgreSqlNumbers.begin(), kPostgreSqlNumbers.end());
  }
  return types;
}

}  // namespace dralo::tests
