#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "database/postgresql/libpq.h"

namespace dralo::database::postgresql {

class Session;
struct Statement;

using Names = std::vector<std::string>;

/// What to ask the server for the keys of a table.
std::string KeysQuestion(Oid table);

/// What it answers: the columns of every key, those of the primary one first, then those of the unique
/// indexes over columns that are never Null.
std::vector<Names> KeysIn(const Result& answer);

/// The keys of tables, by the names that queries give them. A table that another session has altered since is
/// known as it was.
class TableKeys {
 public:
  /// What stands behind the ORDER BY at the end of the query to give rows with equal sort keys one order,
  /// whatever the server's plan: the keys of its tables, in the direction of the last field, so that an index
  /// can serve for all. Empty when it ends in no such order, its rows are not those of its tables, or it
  /// names something that is not a table with a key. Asks about names that are new, so it must be called
  /// between two trips. Throws platform::Error when the connection is lost.
  std::string BehindOrder(Session& session, const Statement& query);

  void Forget() { keys_.clear(); }

 private:
  void Learn(Session& session, const Names& tables);

  std::map<std::string, Names> keys_;  ///< By the names of tables as they are written.
};

}  // namespace dralo::database::postgresql
