#include "database/postgresql/table_catalog.h"

#include <utility>

#include "text/decimal.h"

namespace dralo::database::postgresql {

namespace {

/// A rule that replaces an INSERT may have no number to return.
constexpr std::string_view kColumns =
    "SELECT a.attrelid, n.nspname, c.relname, a.attnum, a.attname, a.attnotnull, (a.attidentity <> '' OR "
    "coalesce(pg_catalog.pg_get_expr(d.adbin, d.adrelid) LIKE '%nextval(%', false)) AND NOT EXISTS "
    "(SELECT 1 FROM pg_catalog.pg_rewrite r WHERE r.ev_class = c.oid AND r.ev_type = '3'), "
    "c.relkind = 'r' AND NOT c.relrowsecurity "
    "FROM pg_catalog.pg_attribute a "
    "JOIN pg_catalog.pg_class c ON c.oid = a.attrelid "
    "JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace "
    "LEFT JOIN pg_catalog.pg_attrdef d ON d.adrelid = a.attrelid AND d.adnum = a.attnum "
    "WHERE a.attnum > 0 AND NOT a.attisdropped AND a.attrelid IN (";

class Answers {
 public:
  explicit Answers(Result result) : result_(std::move(result)) {}

  int Rows() const { return libpq_.PQntuples(result_.get()); }
  std::string Text(int row, int column) const { return libpq_.PQgetvalue(result_.get(), row, column); }
  bool Flag(int row, int column) const { return Text(row, column) == "t"; }

  template <class Number>
  Number As(int row, int column) const {
    return text::ParseNumber<Number>(Text(row, column)).value_or(0);
  }

 private:
  const Libpq& libpq_ = Libpq::Get();
  Result result_;
};

}  // namespace

void TableCatalog::Learn(Link& link, const std::vector<ColumnNumber>& columns) {
  std::set<Oid> unknown;
  for (const ColumnNumber& column : columns) {
    if (column.table != 0 && column.column > 0 && Find(column) == nullptr) unknown.insert(column.table);
  }
  if (!unknown.empty()) Read(link.Run(Question(unknown).c_str()), unknown);
}

std::string TableCatalog::Question(const std::set<Oid>& tables) {
  std::string query(kColumns);
  std::string_view separator;
  for (const Oid table : tables) {
    query.append(separator).append(std::to_string(table));
    separator = ", ";
  }
  return query + ")";
}

void TableCatalog::Read(Result answer, const std::set<Oid>& tables) {
  for (const Oid table : tables) tables_.erase(table);
  const Answers answers(std::move(answer));
  for (int row = 0; row < answers.Rows(); ++row) {
    KnownTable& table = tables_[answers.As<Oid>(row, 0)];
    table.schema = answers.Text(row, 1);
    table.name = answers.Text(row, 2);
    table.has_own_rows = answers.Flag(row, 7);
    table.columns[answers.As<int>(row, 3)] = {answers.Text(row, 4), answers.Flag(row, 5),
                                              answers.Flag(row, 6)};
  }
}

const KnownTable* TableCatalog::Find(const ColumnNumber& column) const {
  const auto found = tables_.find(column.table);
  return found != tables_.end() && found->second.columns.contains(column.column) ? &found->second : nullptr;
}

}  // namespace dralo::database::postgresql
