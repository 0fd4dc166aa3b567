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
  change.text = names.empty() ? session.InsertOfDefaults(table.name)
                              : "INSERT INTO " + table.name + " (" + names + ") VALUES (" + marks + ")";
  return change;
}

/// An UPDATE in the making.
class RowUpdate {
 public:
  RowUpdate(Session& session, ClientCursor& cursor)
      : session_(session), cursor_(cursor), table_(cursor.Table()), columns_(cursor.GetColumns()) {
    change_.text = "UPDATE " + table_.name;
  }

  Change Make(const AssignedValues& values, const RowMatch& match) {
    Set(values);
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
    return std::move(change_);
  }

  /// A declared key finds one row only where none of its values is Null: some databases allow that.
  bool HasKey() const {
    const auto is_null = [&](std::size_t i) {
      return cursor_.At(i).stored && IsNull(View(*cursor_.At(i).stored));
    };
    return !table_.key.empty() && std::ranges::none_of(table_.key, is_null);
  }

 private:
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

  /// What the page says about the row, so that an index can be used and fields that are not shown count.
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

  /// A value that the database would round or convert before it compares it has a comparison of its own.
  void CompareByIndex(std::size_t i) {
    const platform::TypeCode type = (*columns_)[i].type;
    if (type == platform::TypeCode::kSingle || type == platform::TypeCode::kCurrency ||
        IsNull(View(*cursor_.At(i).stored))) {
      return Compare(i);
    }
    Require(table_.columns[i] + " = ?");
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

  /// Whether the column is one of the table, and not of its key, which is compared anyhow.
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

  const auto identity = cursor.Table().identity;
  const bool has_new_number = identity && IsNull(View(row[*identity].value));
  RepeatingAfterConflict(session, [&] {
    platform::Transaction transaction(session);
    RequireOne(session.Run({change.text, change.parameters}), change,
               "The row was not added; a rule of the database prevented it");
    if (has_new_number) {
      const Variant number = session.LastIdentity(cursor.Table(), (*columns)[*identity]);
      row[*identity] = {number, number};
    }
    transaction.Commit();
  });
  cursor.Append(std::move(row));
}

void UpdateRow(Session& session, ClientCursor& cursor, const AssignedValues& values, const RowMatch& match) {
  RowUpdate update(session, cursor);
  const Change change = update.Make(values, match);
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
    RequireOne(
        changed, change,
        "Row cannot be located for updating. Some values may have been changed since it was last read.");
    transaction.Commit();
  });

  const auto columns = cursor.GetColumns();
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i]) cursor.Change(i, {*values[i], session.Stored((*columns)[i], *values[i])});
  }
}

}  // namespace dralo::database
