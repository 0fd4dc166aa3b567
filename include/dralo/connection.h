#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "dralo/object.h"
#include "dralo/variant.h"

namespace dralo::platform {

class Recordset;

/// A connection to one database, made by Environment::MakeConnection(). Used by one thread at a time.
/// Recordsets keep what they need of it alive. All functions that reach the database throw Error when it
/// refuses, does not answer in time, or is gone, and when the connection is not open.
class Connection : public Object {
 public:
  /// Connects as the "key=value;" list says; `user` and `password` are used when they are not empty.
  /// `options` is -1, unspecified. Throws Error when the list names no known database, the database does not
  /// answer, or the connection is open already.
  virtual void Open(std::string_view connection_string, std::string_view user = {},
                    std::string_view password = {}, int options = -1) = 0;

  /// The list given to Open(), without a password; empty before.
  virtual const std::string& ConnectionString() const = 0;

  /// Whether it was opened and not closed. Does not ask the database.
  virtual bool IsOpen() const = 0;

  /// How many seconds a statement may take, from Query Timeout in the connection string; 0 for no limit.
  virtual int QueryTimeoutS() const = 0;

  /// Runs one statement. Returns its rows, or a closed recordset when it yields none.
  /// `records_affected`, when given, receives the number of rows changed, or -1 when the database does not
  /// tell. `options` is -1, or 1 when `sql` is a statement even if it looks like a table name; others are an
  /// Error.
  virtual std::shared_ptr<Recordset> Execute(std::string_view sql, std::int64_t* records_affected = nullptr,
                                             int options = -1) = 0;

  /// Runs a statement with its parameters that is to change one record. When it changes more, all that it did
  /// is undone. Returns how many records it changed, or would have, or -1 when the database does not tell.
  virtual std::int64_t ChangeOneRecord(std::string_view sql, std::span<const Variant> parameters = {}) = 0;

  /// Runs one statement to its end, `parameters` being the values of its "?" in their order; rows that it
  /// yields are discarded. Returns the number of rows changed, or -1 when the database does not tell.
  virtual std::int64_t Run(std::string_view sql, std::span<const Variant> parameters = {}) = 0;

  /// Starts a transaction; inside one that is open already, a part of it that can be undone alone.
  virtual void Begin() = 0;

  /// Keeps what was done since the latest Begin(), for good when that began the transaction. Throws Error
  /// when nothing was begun, and when the database does not keep it: Rollback() must follow then.
  virtual void Commit() = 0;

  /// Undoes what was done since the latest Begin(); nothing when nothing was begun.
  virtual void Rollback() noexcept = 0;

  /// The name quoted for a statement, whatever characters it has. A name of letters, digits and "_" means the
  /// same as without quotes; in PostgreSQL that is the name in lower case.
  virtual std::string QuoteName(std::string_view name) const = 0;

  /// The same for a name that is spelled as in the database, such as one read from a field or a catalogue:
  /// its letter case is kept.
  virtual std::string QuoteExactName(std::string_view name) const = 0;

  /// Gives the connection back, undoing what was begun and not committed; open recordsets on it are closed.
  /// Closing a closed connection does nothing.
  virtual void Close() = 0;
};

}  // namespace dralo::platform

namespace dralo {

using platform::Connection;

}  // namespace dralo
