#pragma once

#include <optional>
#include <string>
#include <vector>

#include "database/client_cursor.h"
#include "database/session.h"
#include "dralo/recordset.h"
#include "dralo/variant.h"

namespace dralo::database {

/// Per column of the result the value that was assigned, if any.
using AssignedValues = std::vector<std::optional<platform::Variant>>;

/// Inserts one row of the assigned values into the base table of `cursor` and makes it the current row.
/// The number that the database gave it stands in its field. Throws platform::Error, having changed nothing.
void InsertRow(Session& session, ClientCursor& cursor, const AssignedValues& values);

/// How the row to change is found again.
struct RowMatch {
  platform::UpdateCriteria criteria;
  const platform::RecordIdentity& identity;  ///< Counts where the table's key is not among the columns.
};

/// Writes the assigned values to the current row of `cursor` if the row is still there and its values, those
/// that are replaced or all, are still the old ones. Without a key all are compared, and no other row must
/// have them. Throws platform::Error, having changed nothing.
void UpdateRow(Session& session, ClientCursor& cursor, const AssignedValues& values, const RowMatch& match);

/// Makes sure that the current row of `cursor` is still there as it was read, and locks it until the end of
/// the transaction where the database has a lock for rows. Throws platform::Error when it is not.
void LockRow(Session& session, ClientCursor& cursor, const RowMatch& match);

/// The condition that a column has the value bound to its "?", for which an index can be used unless the
/// database would round or convert the value before it compares it.
std::string EqualByIndex(const Session& session, const Column& column, const std::string& quoted_column);

}  // namespace dralo::database
