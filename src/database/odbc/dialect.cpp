#include "database/odbc/dialect.h"

#include "text/ascii.h"

namespace dralo::database::odbc {

namespace {

struct Known {
  std::string_view part;  ///< In capitals.
  Dialect dialect;
};

constexpr Known kDatabases[] = {
    {"POSTGRESQL", Dialect::kPostgreSql}, {"MARIADB", Dialect::kMariaDb},      {"MYSQL", Dialect::kMariaDb},
    {"SQLITE", Dialect::kSqlite},         {"SQL SERVER", Dialect::kSqlServer}, {"ORACLE", Dialect::kOracle},
};

constexpr Known kLibraries[] = {
    {"PSQLODBC", Dialect::kPostgreSql}, {"MAODBC", Dialect::kMariaDb},    {"MYODBC", Dialect::kMariaDb},
    {"SQLITE", Dialect::kSqlite},       {"TDSODBC", Dialect::kSqlServer}, {"MSODBCSQL", Dialect::kSqlServer},
    {"SQORA", Dialect::kOracle},
};

template <std::size_t kCount>
Dialect Find(const Known (&known)[kCount], std::string_view text) {
  std::string capitals(text);
  for (char& c : capitals) c = text::ToUpper(c);
  for (const Known& entry : known) {
    if (capitals.find(entry.part) != capitals.npos) return entry.dialect;
  }
  return Dialect::kOther;
}

}  // namespace

Dialect DialectOf(std::string_view database_name) { return Find(kDatabases, database_name); }

Dialect DialectOfLibrary(std::string_view library) {
  const auto slash = library.rfind('/');
  return Find(kLibraries, slash == library.npos ? library : library.substr(slash + 1));
}

}  // namespace dralo::database::odbc
