#pragma once

#include <string>
#include <string_view>

namespace dralo::editing {

/// The condition that addresses one record by its keys, as it stands behind WHERE.
class KeyCondition {
 public:
  /// Adds the term for the key `name`: a text value is quoted, a numeric one stands as it is.
  void Add(std::string_view name, std::string_view value, bool is_numeric);

  /// The terms joined by AND. Only the engines "MSSQL" and "ACCESS" know names in brackets; for all others
  /// every bracket is taken out, also those inside values.
  std::string Text(std::string_view database_engine) const;

 private:
  std::string text_;
};

}  // namespace dralo::editing
