#include "database/postgresql/table_keys.h"

#include "database/postgresql/quote.h"
#include "database/postgresql/session.h"
#include "database/postgresql/statement_shape.h"

namespace dralo::database::postgresql {

namespace {

/// More are rare, and only cost a question each.
constexpr std::size_t kMaxKnownTables = 256;

/// An index that leaves rows out, is over expressions, allows Null or is checked later is no key, and that of
/// a table says nothing about the tables that inherit from it.
constexpr std::string_view kKeyOf =
    ") named(name) JOIN pg_catalog.pg_index i ON i.indrelid = pg_catalog.to_regclass(named.name) "
    "JOIN pg_catalog.pg_class t ON t.oid = i.indrelid AND (t.relkind = 'p' OR NOT t.relhassubclass) "
    "CROSS JOIN LATERAL unnest(i.indkey::int2[]) WITH ORDINALITY k(attnum, place) "
    "JOIN pg_catalog.pg_attribute a ON a.attrelid = i.indrelid AND a.attnum = k.attnum "
    "WHERE i.indisunique AND i.indisvalid AND i.indimmediate AND i.indpred IS NULL AND i.indexprs IS NULL "
    "AND k.place <= i.indnkeyatts AND NOT EXISTS (SELECT 1 FROM pg_catalog.pg_attribute n WHERE "
    "n.attrelid = i.indrelid AND n.attnum = ANY ((i.indkey::int2[])[0:i.indnkeyatts - 1]) "
    "AND NOT n.attnotnull) "
    "ORDER BY named.name, i.indisprimary DESC, i.indexrelid, k.place";

std::string KeyQuery(const std::vector<std::string>& tables) {
  std::string query = "SELECT named.name, i.indexrelid, a.attname FROM (VALUES ";
  std::string_view separator = "(";
  for (const std::string& table : tables) {
    query.append(separator).append(Quote(table, '\'')).append(")");
    separator = ", (";
  }
  return query.append(kKeyOf);
}

/// A trip of its own, which a transaction of the user survives if it fails.
Result AskOnce(Session& session, std::string query) {
  Statement statement;
  statement.kind = {.is_query = true, .is_select = true};
  statement.text = statement.numbered = std::move(query);
  session.GetLink().Begin();
  Execution execution(session.GetLink(), statement, Parameters(), Execution::Rows::kAll,
                      session.TakeOpening(statement.kind));
  execution.Description();
  return execution.All();
}

}  // namespace

void TableKeys::Learn(Session& session, const std::vector<std::string>& tables) {
  if (keys_.size() + tables.size() > kMaxKnownTables) keys_.clear();
  const Result answer = AskOnce(session, KeyQuery(tables));
  for (const std::string& table : tables) keys_[table].clear();
  const Libpq& libpq = Libpq::Get();
  std::string_view table;
  std::string_view index;
  for (int row = 0; row < libpq.PQntuples(answer.get()); ++row) {
    const std::string_view next = libpq.PQgetvalue(answer.get(), row, 0);
    const std::string_view next_index = libpq.PQgetvalue(answer.get(), row, 1);
    if (next != table) index = next_index;
    table = next;
    if (index == next_index) keys_[std::string(table)].emplace_back(libpq.PQgetvalue(answer.get(), row, 2));
  }
}

std::string TableKeys::BehindOrder(Session& session, const Statement& query) {
  const SelectShape shape = ShapeOfRows(query);
  if (!shape.ends_with_order) return {};
  std::vector<std::string> unknown;
  for (const NamedTable& named : shape.tables) {
    if (named.table.empty()) return {};
    std::string name(named.written);
    if (!keys_.contains(name)) unknown.push_back(std::move(name));
  }
  try {
    if (!unknown.empty()) Learn(session, unknown);
  } catch (const platform::Error&) {
    if (session.GetLink().IsDead()) throw;
    return {};
  }
  std::string order;
  for (const NamedTable& named : shape.tables) {
    const Names& key = keys_[std::string(named.written)];
    if (key.empty()) return {};
    for (const std::string& column : key) {
      order.append(", ").append(named.written_alias).append(".").append(Quote(column));
      if (shape.is_descending) order += " DESC";
    }
  }
  return order;
}

}  // namespace dralo::database::postgresql
