#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "component/db_view.h"
#include "dralo/command.h"
#include "dralo/connection.h"
#include "dralo/recordset.h"
#include "hosts/cpp/environment.h"
#include "support/fake_page.h"
#include "support/temporary_database.h"

namespace dralo::tests {

/// The services of the process, in American English whatever the machine's locale.
inline host::Environment& TestEnvironment() {
  static host::Environment environment("en-US");
  return environment;
}

/// A property and its value, as a page script writes them.
struct Setting {
  Setting(std::string_view name, const char* text) : property(name), value(std::string(text)) {}
  Setting(std::string_view name, bool flag) : property(name), value(flag) {}
  Setting(std::string_view name, int number) : property(name), value(std::int64_t{number}) {}
  Setting(std::string_view name, platform::ObjectPtr object) : property(name), value(std::move(object)) {}

  std::string_view property;
  component::PropertyValue value;
};

using Script = std::vector<Setting>;

/// Request keys of a view and their values, without prefix and tag.
using Asked = std::vector<std::pair<std::string_view, std::string_view>>;

inline std::shared_ptr<platform::Command> MakeCommand(const char* text,
                                                      std::vector<platform::Variant> parameters = {}) {
  auto command = std::make_shared<platform::Command>();
  command->command_text = text;
  command->parameters = std::move(parameters);
  return command;
}

/// A view on a page of its own, connected to a database of its own.
struct ViewPage {
  /// Runs the statements in the database first.
  explicit ViewPage(std::string_view statements = {}, platform::Environment& environment = TestEnvironment())
      : database(statements), view(environment) {
    view.OnStartPage(page);
    view.Set("ConnectionString", database.ConnectionString());
  }

  /// A table Items(ID, Name) with the rows 1 to `rows`, named "Item 1" and so on, as the view's sql.
  static std::string ItemsTable(int rows) {
    return "CREATE TABLE Items(ID INTEGER PRIMARY KEY, Name VARCHAR(40));"
           "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" +
           std::to_string(rows) +
           ") INSERT INTO Items SELECT i, 'Item '||i FROM n WHERE i<=" + std::to_string(rows);
  }

  void Set(const Script& script) {
    for (const Setting& setting : script) view.Set(setting.property, setting.value);
  }
  template <class Value>
  void Set(std::string_view property, Value value) {
    Set({Setting(property, value)});
  }

  /// A recordset of the page script's own, on a connection of its own.
  std::shared_ptr<platform::Recordset> OpenRecordset(std::string_view sql) const {
    auto connection = platform::Create<platform::Connection>(TestEnvironment(), "ADODB.Connection");
    connection->Open(database.ConnectionString());
    auto recordset = platform::Create<platform::Recordset>(TestEnvironment(), "ADODB.Recordset");
    recordset->Open(sql, connection);
    return recordset;
  }

  /// Renders and returns what this rendering wrote.
  std::string Render() {
    page.body.clear();
    view.WriteHtmlTable();
    return page.body;
  }

  /// Asks for a view key in the query string, such as ("CurrRecord", "21"); the tag is put in front.
  void Ask(std::string_view name, std::string_view value) {
    page.query.push_back({"Morvu" + view.GetSettings().Tag + std::string(name), std::string(value)});
  }

  void Ask(const Asked& keys) {
    for (const auto& [name, value] : keys) Ask(name, value);
  }

  /// The same in the posted form.
  void Post(std::string_view name, std::string_view value) {
    page.form.push_back({"Morvu" + view.GetSettings().Tag + std::string(name), std::string(value)});
  }

  void Post(const Asked& keys) {
    for (const auto& [name, value] : keys) Post(name, value);
  }

  const std::string& ErrorMessage() const { return view.GetSettings().ErrorMessage; }

  TemporaryDatabase database;
  FakePage page;
  component::DbView view;
};

}  // namespace dralo::tests
