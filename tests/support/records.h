#pragma once

#include <initializer_list>
#include <memory>
#include <string_view>

#include "dralo/connection.h"
#include "dralo/recordset.h"
#include "support/regional_environment.h"
#include "support/temporary_database.h"

namespace dralo::tests {

/// The rows of a query on a SQLite file of their own, open and on the first row.
class Records {
 public:
  explicit Records(std::string_view statements, std::string_view query = "SELECT * FROM T")
      : database_(statements),
        connection_(platform::Create<platform::Connection>(AmericanEnvironment(), "ADODB.Connection")),
        recordset_(platform::Create<platform::Recordset>(AmericanEnvironment(), "ADODB.Recordset")) {
    connection_->Open(database_.ConnectionString());
    recordset_->Open(query, connection_);
  }

  platform::Recordset& operator*() const { return *recordset_; }
  platform::Recordset* operator->() const { return recordset_.get(); }

  /// The field at the 0-based position.
  platform::Field& operator[](std::size_t position) const { return *recordset_->Fields()[position]; }

 private:
  TemporaryDatabase database_;
  std::shared_ptr<platform::Connection> connection_;
  std::shared_ptr<platform::Recordset> recordset_;
};

/// A table T with one column of `type` and one row for each value.
inline Records Column(std::string_view type, std::initializer_list<std::string_view> values) {
  std::string statements = "CREATE TABLE T (V ";
  statements.append(type).append(")");
  for (const std::string_view value : values) {
    statements.append("; INSERT INTO T VALUES (").append(value).append(")");
  }
  return Records(statements);
}

}  // namespace dralo::tests
