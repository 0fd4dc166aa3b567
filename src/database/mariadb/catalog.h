#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dralo::database::mariadb {

class Session;

using Names = std::vector<std::string>;

/// What the server's catalogue says about a table or view.
struct TableFacts {
  Names columns;  ///< None when there is no such table.

  /// The columns of each unique index over whole values that are never Null; the primary key first.
  std::vector<Names> keys;
};

/// Asks the server. An empty `database` stands for the current one. Throws platform::Error.
TableFacts FactsOf(Session& session, std::string_view database, std::string_view table);

}  // namespace dralo::database::mariadb
