#pragma once

#include <sql.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "database/odbc/dialect.h"
#include "database/odbc/handle.h"
#include "database/odbc/options.h"
#include "dralo/error.h"

namespace dralo::database::odbc {

/// A connected driver, and what it has said about itself.
class Link {
 public:
  /// Throws platform::Error when there is no such driver, or the database does not accept the connection or
  /// does not answer in time.
  explicit Link(const Options& options);
  ~Link();
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;

  SQLHDBC Handle() const { return handle_.Get(); }
  const Dialect& GetDialect() const { return *dialect_; }

  /// The quotes around names; empty when the database cannot quote them.
  const std::string& NameQuote() const { return name_quote_; }

  /// Whether tables are in schemas; elsewhere only in catalogs.
  bool HasSchemas() const { return has_schemas_; }

  /// A statement whose runs end with the Query Timeout. Throws platform::Error.
  StatementHandle NewStatement() const;

  SQLRETURN Execute(SQLHSTMT statement, std::string_view text) const;
  SQLRETURN Prepare(SQLHSTMT statement, std::string_view text) const;
  SQLRETURN ExecutePrepared(SQLHSTMT statement) const;

  /// Runs a statement and ignores its rows. Throws platform::Error.
  void Run(std::string_view text) const;

  /// The first value of the first row as a number. Throws platform::Error when there is none.
  std::int64_t AskNumber(std::string_view text) const;

  /// Throws what the driver says about the last call on the statement.
  [[noreturn]] void Throw(SQLHSTMT statement, std::string_view text) const;

  /// Throws it when a call has failed.
  void Require(SQLRETURN code, SQLHSTMT statement, std::string_view text) const {
    if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA) Throw(statement, text);
  }

  /// What the driver says about the last call on the connection.
  platform::Error Failure() const;

  /// Whether the driver has found the connection lost.
  bool IsDead() const;

  /// What the driver says about itself; "" or 0 when it says nothing.
  std::string InfoText(SQLUSMALLINT what) const;
  SQLUINTEGER InfoNumber(SQLUSMALLINT what) const;

 private:
  void Connect(const Options& options);
  void LearnFacts();

  std::vector<std::string> secrets_;
  const SQLULEN query_timeout_s_;
  ConnectionHandle handle_;
  const Dialect* dialect_ = nullptr;
  std::string name_quote_;
  bool has_schemas_ = true;
};

}  // namespace dralo::database::odbc
