#pragma once

#include <sql.h>
#include <sys/types.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "database/odbc/background_run.h"
#include "database/odbc/deadline.h"
#include "database/odbc/dialect.h"
#include "database/odbc/handle.h"
#include "database/odbc/options.h"
#include "database/odbc/socket_watch.h"
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

  bool KeepsPrepared() const { return keeps_prepared_; }

  /// Names and statements go to the driver as they are, which takes them as UTF-8.
  bool IsNarrow() const { return is_narrow_; }

  /// Whether single values can be read of any row of a block, besides the columns that are bound.
  bool ReadsCellsOfBlocks() const;

  /// Whether single values can be read in any order.
  bool ReadsCellsInAnyOrder() const;

  /// Throws platform::Error.
  StatementHandle NewStatement() const;

  /// Runs a statement in the background. None must be started there.
  void ExecuteInBackground(SQLHSTMT statement, std::string text) const;

  BackgroundRun& Background() const { return background_; }

  SQLRETURN Execute(SQLHSTMT statement, std::string_view text) const;
  SQLRETURN Prepare(SQLHSTMT statement, std::string_view text) const;
  SQLRETURN ExecutePrepared(SQLHSTMT statement) const;

  /// For every call of the driver that may wait for the server: it has a limit for each of the statements.
  Deadline Limit(std::int64_t statements = 1) const;

  /// There is no limit any more: the user has changed settings, perhaps the server's limit too.
  void ForgoLimit() { patience_ = std::chrono::seconds(0); }

  bool HasLimit() const { return patience_ != std::chrono::seconds(0); }

  /// The server did not answer in time.
  bool IsGivenUp() const { return is_given_up_; }

  /// Runs a statement whose rows do not matter. Throws platform::Error.
  void Run(std::string_view text) const;

  /// The first value of the first row as a number. Throws platform::Error when there is none.
  std::int64_t AskNumber(std::string_view text) const;

  /// What the driver says about the last call on the statement.
  platform::Error ErrorOf(SQLHSTMT statement, std::string_view text) const;

  [[noreturn]] void Throw(SQLHSTMT statement, std::string_view text) const;

  /// Throws it when a call was not successful.
  void Require(SQLRETURN code, SQLHSTMT statement, std::string_view text) const {
    if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA) Throw(statement, text);
  }

  std::string InfoText(SQLUSMALLINT what) const;

  /// Of a database in a file: whether that is still the one of its name.
  bool HasItsFile() const;

  const SocketWatch& Socket() const { return socket_; }

 private:
  void Connect(const Options& options);
  void LearnFacts();
  void SetTimeouts(const Options& options);
  SQLRETURN ExecuteNow(SQLHSTMT statement, std::string_view text) const;

  std::vector<std::string> secrets_;
  const std::string file_;
  ino_t file_number_ = 0;
  SocketWatch socket_;
  ConnectionHandle handle_;
  const bool keeps_prepared_;
  bool is_narrow_ = false;
  Dialect dialect_ = Dialect::kOther;
  std::string name_quote_;
  SQLUINTEGER reading_ = 0;  ///< Bits of SQL_GETDATA_EXTENSIONS.
  SQLULEN statement_timeout_s_ = 0;
  std::chrono::seconds patience_{0};  ///< 0 where the driver has a limit of its own, or none is wanted.
  mutable std::atomic<bool> is_given_up_ = false;
  mutable BackgroundRun background_;
};

}  // namespace dralo::database::odbc
