#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "dralo/object.h"

namespace dralo::platform {

class Recordset;

/// A connection to one database. Used by one thread at a time. Recordsets keep what they need of it alive.
class Connection : public Object {
 public:
  /// Connects as the "key=value;" list says; `user` and `password` are used when they are not empty.
  /// `options` is -1, unspecified. Throws Error when the list names no known database, the database does not
  /// answer, or the connection is open already.
  virtual void Open(std::string_view connection_string, std::string_view user = {},
                    std::string_view password = {}, int options = -1) = 0;

  /// The list given to Open(), without a password; empty before.
  virtual const std::string& ConnectionString() const = 0;

  virtual bool IsOpen() const = 0;

  /// Runs one statement. Returns its rows, or a closed recordset when it yields none.
  /// `records_affected`, when given, receives the number of rows changed, or -1 when the database does not
  /// tell. `options` is -1, or 1 when `sql` is a statement even if it looks like a table name; others are an
  /// Error.
  virtual std::shared_ptr<Recordset> Execute(std::string_view sql, std::int64_t* records_affected = nullptr,
                                             int options = -1) = 0;

  /// Runs a statement that is to change one record. When it changes more, all that it did is undone.
  /// Returns how many records it changed, or would have, or -1 when the database does not tell.
  virtual std::int64_t ChangeOneRecord(std::string_view sql) = 0;

  /// Gives the connection back; open recordsets on it are closed. Closing a closed connection does nothing.
  virtual void Close() = 0;
};

}  // namespace dralo::platform

namespace dralo {

using platform::Connection;

}  // namespace dralo
