#include "database/odbc/comparison.h"

#include <algorithm>

namespace dralo::database::odbc {

std::string Filled(std::string_view pattern, char sign, std::string_view text) {
  std::string filled;
  for (const char c : pattern) {
    if (c == sign) {
      filled += text;
    } else {
      filled += c;
    }
  }
  return filled;
}

TypeRule RuleOf(const Dialect& dialect, platform::TypeCode type) {
  const auto rule = std::ranges::find(dialect.types, type, &TypeRule::type);
  return rule == dialect.types.end() ? TypeRule{type} : *rule;
}

std::string Unchanged(const Dialect& dialect, const Column& column, std::string_view quoted_column,
                      bool was_null) {
  const TypeRule rule = RuleOf(dialect, column.type);
  const std::string_view condition = was_null ? rule.none : rule.same;
  const std::string_view standard = was_null ? "# IS NULL" : "# = ?";
  return Filled(condition.empty() ? standard : condition, '#', quoted_column);
}

}  // namespace dralo::database::odbc
