#pragma once

#include <sql.h>
#include <sys/types.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "database/odbc/dialect.h"
#include "database/odbc/handle.h"
#include "database/odbc/options.h"
#include "dralo/error.h"

namespace dralo::database::odbc {

/// A connected driver and what it said of itself.
class Link {
 public:
  /// Throws platform::Error when there is no such driver, or the database does not let in or not answer
  /// within the time.
  explicit Link(const Options& options);
  ~Link();
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;

  SQLHDBC Handle() const { return handle_.Get(); }
  Dialect GetDialect() const { return dialect_; }

  /// What names are enclosed in; empty when the database cannot quote them.
  const std::string& NameQuote() const { return name_quote_; }

  /// Texts are exchanged as UTF-8; with other drivers as UTF-16.
  bool SpeaksUtf8() const {
    return dialect_ == Dialect::kPostgreSql || dialect_ == Dialect::kMariaDb || is_narrow_;
  }

  /// Names and statements go to the driver as they are, which takes them as UTF-8.
  bool IsNarrow() const { return is_narrow_; }

  /// Whether single values can be read of any row of a block, besides the columns that are bound.
  bool ReadsCellsOfBlocks() const;

  /// Whether single values can be read in any order.
  bool ReadsCellsInAnyOrder() const;

  /// One whose runs end with the Query Timeout. Throws platform::Error.
  StatementHandle NewStatement() const;

  SQLRETURN Execute(SQLHSTMT statement, std::string_view text) const;
  SQLRETURN Prepare(SQLHSTMT statement, std::string_view text) const;
  SQLRETURN ExecutePrepared(SQLHSTMT statement) const;

  /// Runs a statement whose rows do not matter. Throws platform::Error.
  void Run(std::string_view text) const;

  /// The first value of the first row as a number. Throws platform::Error when there is none.
  std::int64_t AskNumber(std::string_view text) const;

  /// What the driver says about the last call on the statement.
  [[noreturn]] void Throw(SQLHSTMT statement, std::string_view text) const;

  /// Throws it when a call was not successful.
  void Require(SQLRETURN code, SQLHSTMT statement, std::string_view text) const {
    if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA) Throw(statement, text);
  }

  std::string InfoText(SQLUSMALLINT what) const;

  /// Of a database in a file: whether that is still the one of its name.
  bool HasItsFile() const;

 private:
  void Connect(const Options& options);
  void LearnFacts();

  std::vector<std::string> secrets_;
  const std::string file_;
  ino_t file_number_ = 0;
  ConnectionHandle handle_;
  bool is_narrow_ = false;
  Dialect dialect_ = Dialect::kOther;
  std::string name_quote_;
  SQLUINTEGER reading_ = 0;  ///< Bits of SQL_GETDATA_EXTENSIONS.
  const SQLULEN query_timeout_s_;
};

}  // namespace dralo::database::odbc
