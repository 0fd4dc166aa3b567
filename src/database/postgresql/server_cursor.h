#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "database/postgresql/execution.h"
#include "database/postgresql/parameters.h"
#include "database/postgresql/statement.h"

namespace dralo::database::postgresql {

class Session;

/// The rows of a query inside a transaction, a few hundred at a time. In between the connection is free, and
/// leaving the rest costs the transaction nothing. It ends with the transaction, at the latest.
class ServerCursor {
 public:
  /// Runs the query and takes the first rows, in one trip. `opening` is what stands before it. Throws
  /// platform::Error.
  ServerCursor(Session& session, const Statement& query, const Parameters& parameters,
               Execution::Opening opening);

  /// The first rows, once. They have the columns.
  Result TakeFirst() { return std::move(first_); }

  /// Whether there may be more rows.
  bool IsOpen() const { return is_open_; }

  /// The next rows; nullptr behind the last ones. Throws platform::Error.
  Result Next();

  /// Gives the rest up.
  void Close() noexcept;

 private:
  Result Fetch(Execution::Opening opening, const Execution::Leader* leader);

  Session& session_;
  const std::int64_t connection_;  ///< Its number.
  const std::string name_;
  Statement fetching_;
  Result first_;
  bool is_open_ = true;
};

}  // namespace dralo::database::postgresql
