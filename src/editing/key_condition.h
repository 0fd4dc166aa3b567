#pragma once

#include <string>
#include <string_view>

#include "editing/query_schema.h"

namespace dralo::editing {

/// Whether a value of that type can be an empty text, which links and forms show as they show Null.
bool MayBeEmptyText(platform::TypeCode type);

/// The condition, without WHERE, that addresses one record by its keys.
class KeyCondition {
 public:
  /// Adds the term for the key `name`: a text value is quoted, a numeric one stands as it is.
  void Add(std::string_view name, std::string_view value, bool is_numeric);

  /// Adds the term for the key `name` whose text in links and forms is `text`, in the way in which the
  /// database finds it by the column `field`; nullptr for a key that is no column. `is_numeric` says how the
  /// value is written where the column needs nothing else. Throws platform::Error for a column of bytes.
  void AddExact(std::string_view name, const SchemaField* field, std::string_view text, bool is_numeric);

  /// Adds the term for one of several keys whose text is empty: its value in the column `field` is an empty
  /// text or Null.
  void AddEmpty(std::string_view name, const SchemaField& field);

  bool IsEmpty() const { return text_.empty(); }

  /// The terms joined by AND. Only the engines "MSSQL" and "ACCESS" know names in brackets; for all others
  /// every bracket is taken out, also those inside values.
  std::string Text(std::string_view database_engine) const;

 private:
  void AddTerm(std::string_view term);

  std::string text_;
};

}  // namespace dralo::editing
