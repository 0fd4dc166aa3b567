#pragma once

#include <string>
#include <string_view>

#include "component/db_view.h"
#include "hosts/cpp/environment.h"
#include "support/fake_page.h"
#include "support/temporary_database.h"

namespace dralo::tests {

/// The services of the process, in American English whatever the machine's locale.
inline host::Environment& TestEnvironment() {
  static host::Environment environment("en-US");
  return environment;
}

/// A view on a page of its own, connected to a database of its own.
struct ViewPage {
  /// Runs the statements in the database first.
  explicit ViewPage(std::string_view statements = {}) : database(statements), view(TestEnvironment()) {
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

  const std::string& ErrorMessage() const { return view.GetSettings().ErrorMessage; }

  TemporaryDatabase database;
  FakePage page;
  component::DbView view;
};

}  // namespace dralo::tests
