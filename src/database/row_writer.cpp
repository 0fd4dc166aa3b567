#include "database/row_writer.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "database/repetition.h"
#include "dralo/error.h"
#include "platform/transaction.h"
#include "text/ascii.h"

namespace dralo::database {

namespace {

using platform::Error;
using platform::Variant;

/// A statement that is being put together.
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

/// Throws unless exactly one row was changed, so that everything is undone.
void RequireOne(std::int64_t changed, const Change& change, const char* otherwise) {
  if (changed != 1) throw Error(otherwise, 0, {}, change.text);
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
  change.text = "INSERT INTO " + table.name;
  if (names.empty()) {
    change.text += session.DefaultValues();
  } else {
    change.text.append(" (").append(names).append(") VALUES (").append(marks).append(")");
  }
  return change;
}

constexpr const char* kChangedMeanwhile =
    "Row cannot be located for updating. Some values may have been changed since it was last read.";

/// A statement about the current row that is being put together.
class RowStatement {
 public:
  RowStatement(Session& session, ClientCursor& cursor)
      : session_(session), cursor_(cursor), table_(cursor.Table()), columns_(cursor.GetColumns()) {}

  Change MakeUpdate(const AssignedValues& values, const RowMatch& match) {
    change_.text = "UPDATE " + table_.name;
    Set(values);
    Find(values, match);
    return std::move(change_);
  }

  Change MakeLock(const RowMatch& match) {
    change_.text = "SELECT 1 FROM " + table_.name;
    Find(AssignedValues(columns_->size()), {platform::UpdateCriteria::kAllColumns, match.identity});
    change_.text += session_.RowLock();
    return std::move(change_);
  }

  /// Some databases allow Null in a declared key, which then does not find one row.
  bool HasKey() const {
    const auto is_null = [&](std::size_t i) {
      return cursor_.At(i).stored && IsNull(View(*cursor_.At(i).stored));
    };
    return !table_.key.empty() && std::ranges::none_of(table_.key, is_null);
  }

 private:
  void Find(const AssignedValues& values, const RowMatch& match) {
    if (HasKey()) {
      CompareKey();
    } else {
      Identify(match.identity);
    }
    const bool compares_all = !HasKey() || match.criteria == platform::UpdateCriteria::kAllColumns;
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (values[i] || (compares_all && IsComparable(i))) Compare(i);
    }
    if (!has_condition_) {
      throw Error("Nothing is known that tells the row from others; open the recordset again to change it");
    }
  }

  void Set(const AssignedValues& values) {
    std::string_view separator = " SET ";
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (!values[i]) continue;
      change_.text.append(separator).append(RequireOwn(table_, *columns_, i)).append(" = ?");
      change_.Bind(session_.Stored((*columns_)[i], *values[i]));
      separator = ", ";
    }
  }

  void Require(std::string_view condition) {
    change_.text.append(has_condition_ ? " AND " : " WHERE ").append(condition);
    has_condition_ = true;
  }

  void CompareKey() {
    for (const std::size_t i : table_.key) {
      if (!cursor_.At(i).stored)
        throw Error("The key of the new row is not known; open the recordset again to change the row");
      CompareByIndex(i);
    }
  }

  /// Adds what the page knows about the row, so that an index can be used and columns that are not shown
  /// count.
  void Identify(const platform::RecordIdentity& identity) {
    if (!identity.condition.empty()) Require("(" + identity.condition + ")");
    for (std::size_t i = 0; i < columns_->size(); ++i) {
      const auto is_named = [&](const std::string& name) {
        return text::EqualAscii(name, (*columns_)[i].name);
      };
      const bool has_value = cursor_.At(i).stored && !IsNull(View(*cursor_.At(i).stored));
      if (has_value && !table_.columns[i].empty() && std::ranges::any_of(identity.fields, is_named))
        CompareByIndex(i);
    }
  }

  void CompareByIndex(std::size_t i) {
    if (IsNull(View(*cursor_.At(i).stored))) return Compare(i);
    Require(EqualByIndex(session_, (*columns_)[i], table_.columns[i]));
    change_.Bind(*cursor_.At(i).stored);
  }

  /// Adds the condition that a column has the stored value, if that is known.
  void Compare(std::size_t i) {
    const auto& stored = cursor_.At(i).stored;
    if (!stored) return;
    const bool was_null = IsNull(View(*stored));
    Require(session_.Unchanged((*columns_)[i], table_.columns[i], was_null));
    if (!was_null) change_.Bind(*stored);
  }

  /// Whether the column belongs to the table but not to its key, which is compared in any case.
  bool IsComparable(std::size_t column) const {
    const bool is_key = HasKey() && std::ranges::find(table_.key, column) != table_.key.end();
    return !table_.columns[column].empty() && !is_key;
  }

  Session& session_;
  const ClientCursor& cursor_;
  const BaseTable& table_;
  const std::shared_ptr<const Columns> columns_;
  Change change_;
  bool has_condition_ = false;
};

}  // namespace

void InsertRow(Session& session, ClientCursor& cursor, const AssignedValues& values) {
  const Change change = MakeInsert(session, cursor, values);
  const auto columns = cursor.GetColumns();
  ClientCursor::Row row(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i]) row[i] = {*values[i], session.Stored((*columns)[i], *values[i])};
  }

  const BaseTable& table = cursor.Table();
  const bool is_numbered = table.identity && IsNull(View(row[*table.identity].value));
  const Column* const numbered = is_numbered ? &(*columns)[*table.identity] : nullptr;
  RepeatingAfterConflict(session, [&] {
    platform::Transaction transaction(session);
    const auto inserted = session.Insert({change.text, change.parameters}, table, numbered);
    RequireOne(inserted.rows, change, "The row was not added; a rule of the database prevented it");
    if (!IsNull(View(inserted.number))) row[*table.identity] = {inserted.number, inserted.number};
    transaction.Commit();
  });
  cursor.Append(std::move(row));
}

void UpdateRow(Session& session, ClientCursor& cursor, const AssignedValues& values, const RowMatch& match) {
  RowStatement update(session, cursor);
  const Change change = update.MakeUpdate(values, match);
  RepeatingAfterConflict(session, [&] {
    platform::Transaction transaction(session);
    const std::int64_t changed = session.Run({change.text, change.parameters});
    if (changed > 1 && !update.HasKey()) {
      throw Error(
          "Several records are equal in all fields of the query, so none was changed. Add a field that tells "
          "them "
          "apart.",
          0, {}, change.text);
    }
    RequireOne(changed, change, kChangedMeanwhile);
    transaction.Commit();
  });

  const auto columns = cursor.GetColumns();
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i]) cursor.Change(i, {*values[i], session.Stored((*columns)[i], *values[i])});
  }
}

void LockRow(Session& session, ClientCursor& cursor, const RowMatch& match) {
  const Change lock = RowStatement(session, cursor).MakeLock(match);
  const auto locked = session.Prepare({lock.text, lock.parameters});
  if (!locked->Step()) throw Error(kChangedMeanwhile, 0, {}, lock.text);
  locked->Stop();
}

std::string EqualByIndex(const Session& session, const Column& column, const std::string& quoted_column) {
  const bool is_converted =
      column.type == platform::TypeCode::kSingle || column.type == platform::TypeCode::kCurrency;
  return is_converted ? session.Unchanged(column, quoted_column, false) : quoted_column + " = ?";
}

}  // namespace dralo::database
