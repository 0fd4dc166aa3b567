#pragma once

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "component/db_connection.h"
#include "component/db_view.h"
#include "support/browser_form.h"
#include "support/fake_page.h"
#include "support/regional_environment.h"
#include "support/temporary_database.h"
#include "unit/editing/customers.h"

namespace dralo::tests {

using Form = std::vector<platform::RequestField>;

/// One page script, asked by several visitors.
class SharedForm {
 public:
  explicit SharedForm(std::string_view statements = kCustomers) : database(statements) {
    connection->Connection()->Open(database.ConnectionString());
  }

  /// Pages show the table T of another database from now on.
  void Use(const std::string& connection_string) const {
    connection->Connection()->Close();
    connection->Connection()->Open(connection_string);
  }

  /// The page that `form` leads to.
  std::string Page(const Form& form, platform::Environment& environment = AmericanEnvironment()) {
    FakePage page;
    page.form = form;
    component::DbView view(environment);
    view.OnStartPage(page);
    view.Set("DrConnection", platform::ObjectPtr(connection));
    view.Set("EditSQL", std::string("SELECT * FROM T"));
    view.Set("sql", std::string("SELECT * FROM T"));
    view.Set("EditPrimaryKeys", std::string("ID"));
    view.Set("EditOptions", std::string("ADD UPDATE DELETE"));
    view.Set("DeleteSQL", std::string("DELETE FROM T"));
    view.Set("EditDetectConflicts", true);
    for (const auto& [name, value] : settings) view.Set(name, value);
    configure(view);
    view.WriteHtmlTable();
    error = view.GetSettings().ErrorMessage;
    view.OnEndPage();
    return page.body;
  }

  /// The add form.
  std::string OpenNew() { return Page({{"Morvu1FormDisplay", "formOneRec"}, {"Morvu1FormAdd", "1"}}); }

  /// The edit form of the record of that key.
  std::string Open(std::string_view key = "1", platform::Environment& environment = AmericanEnvironment()) {
    return Page(
        {{"Morvu1FormDisplay", "formOneRec"}, {"Morvu1PK", std::string(key)}, {"Morvu1FormEdit", "1"}},
        environment);
  }

  TemporaryDatabase database;
  std::vector<std::pair<std::string, component::PropertyValue>> settings;
  std::function<void(component::DbView&)> configure = [](component::DbView&) {};
  std::string error;
  std::shared_ptr<component::DBConnection> connection =
      std::make_shared<component::DBConnection>(AmericanEnvironment());
};

/// Types `text` into the field of a form that a browser is about to post; a box is ticked by "on" and emptied
/// by "".
inline void TypeInto(Form& form, std::string_view field, std::string_view text) {
  const std::string name = "Morvu1_Form_" + std::string(field);
  const auto input = std::ranges::find(form, name, &platform::RequestField::name);
  if (input == form.end()) {
    if (!text.empty()) form.push_back({name, std::string(text)});
  } else if (text.empty() && input->value == "on") {
    form.erase(input);
  } else {
    input->value = text;
  }
}

/// What a browser posts from `page` by the button when the visitor has typed these texts.
inline Form Typed(std::string_view page,
                  std::initializer_list<std::pair<std::string_view, std::string_view>> texts,
                  std::string_view button = "Morvu1FormUpdate") {
  Form form = PostedByBrowser(page, button);
  for (const auto& [field, text] : texts) TypeInto(form, field, text);
  return form;
}

}  // namespace dralo::tests
