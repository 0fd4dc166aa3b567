#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "component/db_connection.h"
#include "editing/update_engine.h"
#include "settings/setters.h"
#include "support/rendering.h"
#include "support/temporary_database.h"
#include "text/list.h"
#include "unit/editing/customers.h"

namespace dralo::tests {

/// A page that posts a form of a view. Fields() and Post() make up the form, Save() and Delete() send it.
class Saving : public Rendering {
 public:
  explicit Saving(const TemporaryDatabase& database, platform::Environment& services = AmericanEnvironment(),
                  std::string_view connection_settings = {}) {
    environment = &services;
    settings.DrConnection = std::make_shared<component::DBConnection>(services);
    settings.DrConnection->Connection()->Open(database.ConnectionString() + std::string(connection_settings));
    settings.EditSQL = "SELECT * FROM T";
    settings.EditPrimaryKeys = "ID";
    settings::SetEditOptions(settings, "ADD UPDATE DELETE");
  }

  /// Adds the input of a field to the form.
  Saving& Post(std::string_view field, std::string_view value) {
    page.form.push_back({Key("_Form_") + std::string(field), std::string(value)});
    return *this;
  }

  Saving& Post(std::initializer_list<std::pair<std::string_view, std::string_view>> inputs) {
    for (const auto& [field, value] : inputs) Post(field, value);
    return *this;
  }

  bool Save() { return Send("FormUpdate", "Save"); }
  bool Delete() { return Send("FormDelete", "Delete"); }
  bool Insert() {
    page.form.push_back({Key("FormInsert"), "1"});
    return Save();
  }

  /// What the engine makes of the request as it is. Output of the render would be an error.
  bool Update() { return Rendered(editing::UpdateRecord); }

  std::string Key(std::string_view name) const { return "Morvu" + settings.Tag + std::string(name); }

  const std::string& Message() const { return settings.ErrorMessage; }
  const std::string& Status() const { return outcome.status_message; }

 private:
  bool Send(std::string_view button, std::string_view caption) {
    page.form.push_back({Key(button), std::string(caption)});
    return Update();
  }
};

/// The row as a list of SQL literals, so that Null, texts and numbers are told apart.
inline std::string Row(const TemporaryDatabase& database, std::string_view condition = "ID=1",
                       std::string_view columns = "ID,Name,City,Stock,Price,Since,Active,Notes") {
  std::string query = "SELECT ";
  std::string_view separator;
  for (const std::string& column : text::Split(columns)) {
    query.append(separator).append("quote(").append(column).append(")");
    separator = "||','||";
  }
  return database.Value(query.append(" FROM T WHERE ").append(condition));
}

}  // namespace dralo::tests
