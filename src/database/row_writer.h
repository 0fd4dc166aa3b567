#pragma once

#include <optional>
#include <string>
#include <vector>

#include "database/client_cursor.h"
#include "database/session.h"
#include "dralo/recordset.h"
#include "dralo/variant.h"

namespace dralo::database {

/// For each column of the result the value that was assigned, if any.
using AssignedValues = std::vector<std::optional<platform::Variant>>;

/// Inserts one row of the assigned values into the base table of `cursor` and makes it the current row, with
/// the number that the database gave it. Throws platform::Error, and changes nothing then.
void InsertRow(Session& session, ClientCursor& cursor, const AssignedValues& values);

/// How the row to change is found again.
struct RowMatch {
  platform::UpdateCriteria criteria;
  const platform::RecordIdentity& identity;  ///< Used when the table's key is not among the columns.
};

/// Writes the assigned values to the current row of `cursor`, if the row is still there and still has its old
/// values: those that are replaced, or all. Without a key all are compared, and no other row may have the
/// same. Throws platform::Error, and changes nothing then.
void UpdateRow(Session& session, ClientCursor& cursor, const AssignedValues& values, const RowMatch& match);

/// Makes sure that the current row of `cursor` still is as it was read, and locks it until the end of the
/// transaction if the database can lock rows. Throws platform::Error when it has changed.
void LockRow(Session& session, ClientCursor& cursor, const RowMatch& match);

/// The condition that a column has the value bound to its "?". An index can serve for it, unless the database
/// would round or convert the value before it compares.
std::string EqualByIndex(const Session& session, const Column& column, const std::string& quoted_column);

}  // namespace dralo::database
