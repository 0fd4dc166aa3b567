#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "database/base_table.h"
#include "database/column.h"
#include "database/cursor.h"
#include "database/query.h"
#include "dralo/error.h"
#include "dralo/variant.h"

namespace dralo::database {

/// One connection to a database as its provider keeps it. Used by one thread at a time.
class Session {
 public:
  virtual ~Session() = default;
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Checks and prepares one statement; reads no row.
  /// Throws platform::Error when the statement is not accepted or the number of parameters is wrong.
  virtual std::unique_ptr<Cursor> Prepare(const Query& query) = 0;

  /// The name quoted for a statement, whatever characters it has.
  virtual std::string QuoteName(std::string_view name) const = 0;

  /// The same for a name that is spelled as in the database.
  virtual std::string QuoteExactName(std::string_view name) const { return QuoteName(name); }

  /// The statement that calls a stored procedure with `parameters` values. Throws platform::Error when the
  /// database has no procedures.
  virtual std::string ProcedureCall(std::string_view name, std::size_t parameters) const = 0;

  /// The condition that a column still has the value it was read with: that of a parameter "?", or Null, for
  /// which nothing is bound.
  virtual std::string Unchanged(const Column& column, const std::string& quoted_column,
                                bool was_null) const = 0;

  /// Follows a query, so that its rows stay unchanged until the transaction ends; "" when the database has
  /// nothing for that.
  virtual std::string_view RowLock() const { return {}; }

  /// `value`, which has the column's type, in the form that is written into the column.
  virtual platform::Variant Stored(const Column& column, const platform::Variant& value) const = 0;

  /// What follows the table in the INSERT of a row of default values.
  virtual std::string_view DefaultValues() const { return " DEFAULT VALUES"; }

  /// Starts a transaction; inside one that is open already, a part of it that can be undone alone.
  virtual void Begin() = 0;
  virtual void Commit() = 0;
  virtual void Rollback() noexcept = 0;

  /// Whether the transaction that failed with `error`, and is rolled back, may succeed when it is run again
  /// from its start: it met another one, was part of no other, and has left nothing.
  virtual bool MayRepeatAfter(const platform::Error& /*error*/) const { return false; }

  struct Inserted {
    std::int64_t rows = 0;
    platform::Variant number = {};  ///< Null when it is not known.
  };

  /// Runs an INSERT into `table`. `numbered` is the column that the database numbers, whose number is then
  /// returned; nullptr when there is none.
  virtual Inserted Insert(const Query& insert, const BaseTable& table, const Column* numbered);

  /// Whether a kept session still reaches the database that its connection string names.
  virtual bool IsAlive() noexcept = 0;

  /// Makes the session as good as new for the next user: no transaction, no running statement. Returns false
  /// when that is not possible; the session must then be closed.
  virtual bool Reset() noexcept = 0;

  /// Whether CountBeside() is better than calling Ask() before `rows` are prepared.
  virtual bool CountsBesideRows(const Query& /*rows*/) const { return false; }

  /// The only value of `count`, and the first step of `rows`, which was not stepped yet, together: at the
  /// same moment, or in one trip. A failure of that step is thrown by the next Step().
  virtual platform::Variant CountBeside(const Query& count, Cursor& /*rows*/) { return Ask(count); }

  /// The first value of the first row. Throws platform::Error when there is none.
  platform::Variant Ask(const Query& query);

  /// The first value of the first row of `cursor`, which runs `query` and stays on that row. Throws
  /// platform::Error when there is none.
  static platform::Variant FirstValue(Cursor& cursor, const Query& query);

  /// Runs a statement to its end. Returns the number of rows changed.
  std::int64_t Run(const Query& query);

  /// False in a child process that inherited the session by fork(). It must then neither be used nor closed,
  /// because that would disturb the files and sockets it shares with the parent.
  bool BelongsToThisProcess() const noexcept;

 protected:
  Session();

  /// The number that the database gave, in `column` of `table`, to the row inserted last. Needed by Insert()
  /// as implemented here.
  virtual std::optional<std::int64_t> LastIdentity(const BaseTable& /*table*/,
                                                   const Column& /*column*/) const {
    return std::nullopt;
  }

 private:
  const pid_t process_;
};

}  // namespace dralo::database
