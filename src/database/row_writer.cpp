#include "database/row_writer.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "database/transaction.h"
#include "platform/error.h"

namespace dralo::database {

namespace {

using platform::Error;
using platform::Variant;

/// A statement in the making.
struct Change {
  std::string text;
  std::vector<Variant> parameters;

  void Bind(Variant value) { parameters.push_back(std::move(value)); }
};

std::string_view RequireOwn(const BaseTable& table, const Columns& columns, std::size_t column) {
  if (table.columns[column].empty()) {
    throw Error("The field " + columns[column].name + " is computed and cannot be set");
  }
  return table.columns[column];
}

/// One changed row or none: everything else is undone.
void RunForOneRow(Session& session, const Change& change, const char* otherwise) {
  if (session.Run({change.text, change.parameters}) != 1) throw Error(otherwise, 0, {}, change.text);
}

Change MakeInsert(Session& session, ClientCursor& cursor, const AssignedValues& values) {
  const BaseTable& table = cursor.Table();
  const auto columns = cursor.GetColumns();
  Change change;
  std::string names;
  std::string marks;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!values[i]) continue;
    const std::string_view separator = names.empty() ? "" : ", ";
    names.append(separator).append(RequireOwn(table, *columns, i));
    marks.append(separator).append("?");
    change.Bind(session.Stored((*columns)[i], *values[i]));
  }
  change.text = names.empty() ? session.InsertOfDefaults(table.name)
                              : "INSERT INTO " + table.name + " (" + names + ") VALUES (" + marks + ")";
  return change;
}

/// Adds the condition that a column has the stored value, if that is known.
void AddCondition(Session& session, Change& change, const Column& column, const std::string& quoted_column,
                  const ClientCursor::Cell& cell) {
  if (!cell.stored) return;
  const bool was_null = IsNull(View(*cell.stored));
  change.text += " AND " + session.Unchanged(column, quoted_column, was_null);
  if (!was_null) change.Bind(*cell.stored);
}

void AddKey(Change& change, const BaseTable& table, const ClientCursor& cursor) {
  std::string_view separator = " WHERE ";
  for (const std::size_t i : table.key) {
    const auto& stored = cursor.At(i).stored;
    if (!stored)
      throw Error("The key of the new row is not known; open the recordset again to change the row");
    change.text.append(separator).append(table.columns[i]).append(" = ?");
    change.Bind(*stored);
    separator = " AND ";
  }
}

/// Whether the column is one of the table, and not of its key, which is compared anyhow.
bool IsComparable(const BaseTable& table, std::size_t column) {
  return !table.columns[column].empty() && std::ranges::find(table.key, column) == table.key.end();
}

Change MakeUpdate(Session& session, ClientCursor& cursor, const AssignedValues& values,
                  platform::UpdateCriteria criteria) {
  const BaseTable& table = cursor.Table();
  const auto columns = cursor.GetColumns();
  Change change;
  change.text = "UPDATE " + table.name;
  std::string_view separator = " SET ";
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!values[i]) continue;
    change.text.append(separator).append(RequireOwn(table, *columns, i)).append(" = ?");
    change.Bind(session.Stored((*columns)[i], *values[i]));
    separator = ", ";
  }
  AddKey(change, table, cursor);
  const bool compares_all = criteria == platform::UpdateCriteria::kAllColumns;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i] || (compares_all && IsComparable(table, i)))
      AddCondition(session, change, (*columns)[i], table.columns[i], cursor.At(i));
  }
  return change;
}

}  // namespace

void InsertRow(Session& session, ClientCursor& cursor, const AssignedValues& values) {
  const Change change = MakeInsert(session, cursor, values);
  const auto columns = cursor.GetColumns();
  ClientCursor::Row row(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i]) row[i] = {*values[i], session.Stored((*columns)[i], *values[i])};
  }

  Transaction transaction(session);
  RunForOneRow(session, change, "The row was not added; a rule of the database prevented it");
  const auto identity = cursor.Table().identity;
  if (identity && IsNull(View(row[*identity].value))) {
    const Variant number = session.LastIdentity(cursor.Table(), (*columns)[*identity]);
    row[*identity] = {number, number};
  }
  transaction.Commit();
  cursor.Append(std::move(row));
}

void UpdateRow(Session& session, ClientCursor& cursor, const AssignedValues& values,
               platform::UpdateCriteria criteria) {
  const Change change = MakeUpdate(session, cursor, values, criteria);
  Transaction transaction(session);
  RunForOneRow(
      session, change,
      "Row cannot be located for updating. Some values may have been changed since it was last read.");
  transaction.Commit();

  const auto columns = cursor.GetColumns();
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i]) cursor.Change(i, {*values[i], session.Stored((*columns)[i], *values[i])});
  }
}

}  // namespace dralo::database
