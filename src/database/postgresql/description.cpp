#include "database/postgresql/description.h"

#include <utility>

#include "database/postgresql/column_type.h"
#include "text/ascii.h"

namespace dralo::database::postgresql {

namespace {

/// Outer joins and groupings of several kinds yield Null for columns that are never Null in their tables. A
/// word found by mistake only makes a column nullable that is not.
bool MayAddNulls(std::string_view text) {
  if (text::ContainsAscii(text, "ROLLUP") || text::ContainsAscii(text, "CUBE") ||
      text::ContainsAscii(text, "GROUPING")) {
    return true;
  }
  if (!text::ContainsAscii(text, "JOIN")) return false;
  return text::ContainsAscii(text, "LEFT") || text::ContainsAscii(text, "RIGHT") ||
         text::ContainsAscii(text, "FULL");
}

void SetOrigin(Column& column, const KnownTable& table, int number, bool may_add_nulls) {
  const KnownTable::TableColumn& own = table.columns.at(number);
  column.origin_database = table.schema;
  column.origin_table = table.name;
  column.origin = own.name;
  column.is_nullable = may_add_nulls || !own.is_required;
  column.is_numbered = own.is_numbered;
}

Description::ServerType TypeOfColumn(const PGresult* answer, int number) {
  const Libpq& libpq = Libpq::Get();
  return {libpq.PQftype(answer, number), libpq.PQfmod(answer, number)};
}

Description::Origin OriginOfColumn(const PGresult* answer, int number) {
  const Libpq& libpq = Libpq::Get();
  return {libpq.PQftable(answer, number), libpq.PQftablecol(answer, number)};
}

}  // namespace

bool Description::IsOf(const PGresult* answer) const {
  const Libpq& libpq = Libpq::Get();
  bool is_same = std::cmp_equal(libpq.PQnfields(answer), columns->size());
  for (std::size_t i = 0; is_same && i < columns->size(); ++i) {
    const auto number = static_cast<int>(i);
    is_same = (*columns)[i].name == libpq.PQfname(answer, number) &&
              types[i] == TypeOfColumn(answer, number) && origins[i] == OriginOfColumn(answer, number);
  }
  return is_same;
}

std::optional<platform::Variant> FirstValue(const PGresult* answer) {
  const Libpq& libpq = Libpq::Get();
  if (libpq.PQntuples(answer) == 0 || libpq.PQnfields(answer) == 0) return std::nullopt;
  if (libpq.PQgetisnull(answer, 0, 0) != 0) return platform::Variant();
  Column column;
  const Description::ServerType type = TypeOfColumn(answer, 0);
  const Reader read = SetType(column, type.number, type.modifier);
  const std::string_view text(libpq.PQgetvalue(answer, 0, 0),
                              static_cast<std::size_t>(libpq.PQgetlength(answer, 0, 0)));
  std::string scratch;
  return platform::Own(read(text, scratch));
}

Description Describe(Link& link, TableCatalog& catalog, const PGresult* answer, std::string_view text) {
  const Libpq& libpq = Libpq::Get();
  Description description;
  Columns columns(static_cast<std::size_t>(libpq.PQnfields(answer)));
  int number = 0;
  for (Column& column : columns) {
    column.name = libpq.PQfname(answer, number);
    const Description::ServerType& type = description.types.emplace_back(TypeOfColumn(answer, number));
    description.readers.push_back(SetType(column, type.number, type.modifier));
    description.origins.push_back(OriginOfColumn(answer, number));
    ++number;
  }
  description.columns = std::make_shared<const Columns>(std::move(columns));
  catalog.Learn(link, description.origins);
  SetOrigins(description, catalog, text);
  return description;
}

void SetOrigins(Description& description, const TableCatalog& catalog, std::string_view text) {
  Columns columns = *description.columns;
  const bool may_add_nulls = MayAddNulls(text);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Description::Origin& origin = description.origins[i];
    const KnownTable* const table = catalog.Find(origin);
    if (table != nullptr) SetOrigin(columns[i], *table, origin.column, may_add_nulls);
  }
  description.columns = std::make_shared<const Columns>(std::move(columns));
}

}  // namespace dralo::database::postgresql
