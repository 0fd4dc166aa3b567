#include "database/postgresql/table_keys.h"

#include "database/postgresql/quote.h"
#include "database/postgresql/session.h"
#include "database/postgresql/statement_shape.h"

namespace dralo::database::postgresql {

namespace {

/// More are rare, and only cost a question each.
constexpr std::size_t kMaxKnownTables = 256;

/// An index that leaves rows out, is over expressions or allows Null is no key.
constexpr std::string_view kIndexes =
    ") named(name, id) JOIN pg_catalog.pg_index i ON i.indrelid = named.id "
    "JOIN pg_catalog.pg_class t ON t.oid = i.indrelid "
    "CROSS JOIN LATERAL unnest(i.indkey::int2[]) WITH ORDINALITY k(attnum, place) "
    "JOIN pg_catalog.pg_attribute a ON a.attrelid = i.indrelid AND a.attnum = k.attnum "
    "WHERE i.indisunique AND i.indisvalid AND i.indpred IS NULL AND i.indexprs IS NULL "
    "AND k.place <= i.indnkeyatts AND NOT EXISTS (SELECT 1 FROM pg_catalog.pg_attribute n WHERE "
    "n.attrelid = i.indrelid AND n.attnum = ANY ((i.indkey::int2[])[0:i.indnkeyatts - 1]) "
    "AND NOT n.attnotnull) AND ";

/// A key that is checked later finds a record only if it is the primary one.
constexpr std::string_view kThatFind = "(i.indimmediate OR i.indisprimary)";

/// One that is checked later may be there twice, and that of a table says nothing about the tables that
/// inherit from it.
constexpr std::string_view kThatOrder = "i.indimmediate AND (t.relkind = 'p' OR NOT t.relhassubclass)";

/// `tables` are rows of a name, by which the answer tells the tables apart, and the table's number.
std::string KeyQuery(std::string_view tables, std::string_view condition) {
  std::string query = "SELECT named.name, i.indexrelid, a.attname FROM (VALUES ";
  query.append(tables).append(kIndexes).append(condition);
  return query.append(" ORDER BY named.name, i.indisprimary DESC, i.indexrelid, k.place");
}

using KeysByTable = std::map<std::string, std::vector<Names>>;

KeysByTable ReadKeys(const Result& answer) {
  const Libpq& libpq = Libpq::Get();
  KeysByTable keys;
  std::string_view index;
  for (int row = 0; row < libpq.PQntuples(answer.get()); ++row) {
    std::vector<Names>& of_table = keys[libpq.PQgetvalue(answer.get(), row, 0)];
    const std::string_view next = libpq.PQgetvalue(answer.get(), row, 1);
    if (of_table.empty() || next != index) of_table.emplace_back();
    of_table.back().emplace_back(libpq.PQgetvalue(answer.get(), row, 2));
    index = next;
  }
  return keys;
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

std::string KeysQuestion(Oid table) {
  return KeyQuery("('', oid '" + std::to_string(table) + "')", kThatFind);
}

std::vector<Names> KeysIn(const Result& answer) { return ReadKeys(answer)[""]; }

void TableKeys::Learn(Session& session, const Names& tables) {
  if (keys_.size() + tables.size() > kMaxKnownTables) keys_.clear();
  std::string rows;
  for (const std::string& table : tables) {
    const std::string name = Quote(table, '\'');
    rows.append(rows.empty() ? "(" : ", (")
        .append(name)
        .append(", pg_catalog.to_regclass(")
        .append(name)
        .append("))");
  }
  KeysByTable keys = ReadKeys(AskOnce(session, KeyQuery(rows, kThatOrder)));
  for (const std::string& table : tables) {
    keys_[table] = keys[table].empty() ? Names() : keys[table].front();
  }
}

std::string TableKeys::BehindOrder(Session& session, const Statement& query) {
  const SelectShape shape = ShapeOfRows(query);
  if (!shape.ends_with_order) return {};
  Names unknown;
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
