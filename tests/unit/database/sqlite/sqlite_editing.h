#pragma once

#include <string>
#include <string_view>

#include "unit/database/sqlite/sqlite_file.h"

namespace dralo::tests {

class SqliteEditing : public SqliteFile {
 protected:
  static void Set(const RecordsetPtr& recordset, std::string_view name, const platform::Variant& value) {
    FieldOf(*recordset, name).SetValue(value);
  }

  /// Changes one field of the first record of `sql`. Returns the failure, or "".
  std::string Change(const std::string& sql, std::string_view name, const platform::Variant& value) {
    try {
      const auto recordset = Edit(Database(), sql);
      Set(recordset, name, value);
      recordset->Update();
      return "";
    } catch (const platform::Error& error) {
      return error.what();
    }
  }
};

}  // namespace dralo::tests
