#include "database/sqlite/plan.h"

#include <algorithm>
#include <vector>

#include "database/sqlite/ask.h"

namespace dralo::database::sqlite {

namespace {

/// The steps that SQLite takes, without those that are part of another step.
std::vector<std::string> Plan(sqlite3* connection, std::string_view query) {
  std::vector<std::string> steps;
  for (auto& step : Ask(connection, "EXPLAIN QUERY PLAN " + std::string(query))) {
    if (step[1] == "0") steps.push_back(std::move(step[3]));
  }
  return steps;
}

}  // namespace

std::optional<std::string> FindOneTable(sqlite3* connection, std::string_view query) {
  std::optional<std::string> table;
  for (const std::string_view step : Plan(connection, query)) {
    for (const std::string_view other :
         {"COMPOUND", "MERGE", "CO-ROUTINE", "MATERIALIZE", "SETUP", "RECURSIVE"}) {
      if (step.starts_with(other)) return std::nullopt;
    }
    for (const std::string_view read : {"SCAN ", "SEARCH ", "MULTI-INDEX OR"}) {
      if (!step.starts_with(read)) continue;
      if (table) return std::nullopt;
      table = step.substr(read.size());
    }
  }
  return table;
}

bool SortsAllRows(sqlite3* connection, std::string_view query) {
  return std::ranges::count(Plan(connection, query), "USE TEMP B-TREE FOR ORDER BY") > 0;
}

}  // namespace dralo::database::sqlite
