#pragma once

#include <string>

#include "unit/database/postgresql/native_test.h"

namespace dralo::tests {

/// Queries of a page that come again and again, as those of a site do.
class KnownQuery : public PostgreSqlProvider {
 protected:
  static constexpr int kPageRows = 5;

  /// Often enough that the session has prepared it.
  Lines AskThrice(std::string_view sql, std::int64_t max_records = kPageRows) const {
    Ask(sql, max_records);
    Ask(sql, max_records);
    return Ask(sql, max_records);
  }

  Lines Names(std::string_view sql) const {
    Lines names;
    const auto recordset = Read(connection_, sql, kPageRows);
    for (const platform::Field* field : recordset->Fields()) names.emplace_back(field->Name());
    return names;
  }

  int Prepared() const {
    return std::stoi(Ask("SELECT COUNT(*) FROM pg_prepared_statements WHERE statement LIKE '%goods%' AND "
                         "statement NOT LIKE '%pg_prepared%'")
                         .front());
  }

  void MakeGoods() const {
    Run("CREATE TABLE goods (id integer PRIMARY KEY, name varchar(20), stock integer)");
    Run("INSERT INTO goods SELECT i, 'good ' || i, i % 3 FROM generate_series(1, 300) i");
  }
};

}  // namespace dralo::tests
