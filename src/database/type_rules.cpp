#include "database/type_rules.h"

#include <algorithm>

#include "database/statement_text.h"

namespace dralo::database {

TypeRule RuleOf(TypeRules rules, platform::TypeCode type) {
  const auto rule = std::ranges::find(rules, type, &TypeRule::type);
  return rule == rules.end() ? TypeRule{type} : *rule;
}

std::string Unchanged(TypeRules rules, const Column& column, std::string_view quoted_column, bool was_null) {
  const TypeRule rule = RuleOf(rules, column.type);
  const std::string_view condition = was_null ? rule.none : rule.same;
  const std::string_view standard = was_null ? "# IS NULL" : "# = ?";
  return Filled(condition.empty() ? standard : condition, '#', quoted_column);
}

}  // namespace dralo::database
