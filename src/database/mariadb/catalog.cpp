#include "database/mariadb/catalog.h"

#include <algorithm>
#include <map>

#include "database/mariadb/cursor.h"
#include "database/mariadb/session.h"

namespace dralo::database::mariadb {

namespace {

constexpr std::string_view kPrimary = "PRIMARY";

/// The catalogue compares names of tables in any letter case; elsewhere they are compared exactly.
constexpr std::string_view kQuery =
    "SELECT '' AS part_of, COLUMN_NAME, ORDINAL_POSITION FROM information_schema.COLUMNS "
    "WHERE TABLE_SCHEMA = ? AND TABLE_NAME = ? AND BINARY TABLE_NAME = ? "
    "UNION ALL "
    "SELECT INDEX_NAME, IF(NULLABLE = 'YES' OR SUB_PART IS NOT NULL, NULL, COLUMN_NAME), SEQ_IN_INDEX "
    "FROM information_schema.STATISTICS "
    "WHERE NON_UNIQUE = 0 AND TABLE_SCHEMA = ? AND TABLE_NAME = ? AND BINARY TABLE_NAME = ? "
    "ORDER BY 1, 3";

std::string TextOf(platform::VariantView value) {
  const auto* text = std::get_if<std::string_view>(&value);
  return text != nullptr ? std::string(*text) : std::string{};
}

}  // namespace

TableFacts FactsOf(Session& session, std::string_view database, std::string_view table) {
  const std::string schema = database.empty() ? session.CurrentDatabase() : std::string(database);
  const std::string name(table);
  const std::vector<platform::Variant> parameters = {schema, name, name, schema, name, name};
  Cursor cursor(session, {.text = kQuery, .parameters = parameters});
  TableFacts facts;
  std::map<std::string, Names> indexes;
  while (cursor.Step()) {
    const std::string index = TextOf(cursor.Value(0));
    (index.empty() ? facts.columns : indexes[index]).push_back(TextOf(cursor.Value(1)));
  }
  for (auto& [index, columns] : indexes) {
    if (std::ranges::find(columns, "") != columns.end()) continue;
    facts.keys.insert(index == kPrimary ? facts.keys.begin() : facts.keys.end(), std::move(columns));
  }
  return facts;
}

}  // namespace dralo::database::mariadb
