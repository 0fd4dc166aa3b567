#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "data/databases.h"

namespace dralo::tests {

inline constexpr const char* kConflict =
    "Row cannot be located for updating. Some values may have been changed since it was last read.";

class EditingContract : public DatabaseContract {
 protected:
  static void Set(const RecordsetPtr& recordset, std::string_view name, platform::Variant value) {
    FieldOf(*recordset, name).SetValue(value);
  }

  static void Save(const RecordsetPtr& recordset, std::string_view name, platform::Variant value) {
    Set(recordset, name, std::move(value));
    recordset->Update();
  }

  static std::string RefusalOf(const RecordsetPtr& recordset, std::string_view name,
                               platform::Variant value) {
    return MessageOf([&] { Set(recordset, name, std::move(value)); });
  }

  RecordsetPtr EditRecord(int id) const {
    return Edit(connection_, "SELECT * FROM Goods WHERE ID = " + std::to_string(id));
  }

  Lines Record(int id) const {
    return Rows(connection_,
                "SELECT Name, Price, Stock, Active, Born, Seen, Weight, Note FROM Goods WHERE ID = " +
                    std::to_string(id));
  }
};

}  // namespace dralo::tests
