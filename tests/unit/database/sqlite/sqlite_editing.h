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

  static void Save(const RecordsetPtr& recordset, std::string_view name, const platform::Variant& value) {
    Set(recordset, name, value);
    recordset->Update();
  }

  /// Changes one field of the first record of `sql`. Returns the failure, or "".
  std::string Change(const std::string& sql, std::string_view name, const platform::Variant& value) {
    try {
      const auto recordset = Edit(Database(), sql);
      Save(recordset, name, value);
      return "";
    } catch (const platform::Error& error) {
      return error.what();
    }
  }
};

}  // namespace dralo::tests
