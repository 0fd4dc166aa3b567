#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "component/db_view.h"
#include "data/shorthand.h"
#include "hosts/cpp/environment.h"
#include "support/browser_form.h"
#include "support/fake_page.h"
#include "support/shown_view.h"

namespace dralo::tests {

/// A visitor of the records of a table with a key K and a text Note: opens one by its link, edits it, saves
/// it and deletes it.
class KeyJourney {
 public:
  using Fields = FakePage::Fields;

  KeyJourney(std::string connection_string, std::string table)
      : connection_string_(std::move(connection_string)), table_(std::move(table)) {}

  /// Settings of the page that are not the usual ones, by name.
  std::vector<std::pair<std::string, std::string>> settings = {};

  bool is_hardened = false;

  /// The page as it answers; what went wrong stands in Error() then.
  std::string Show(Fields query, Fields form = {}) {
    FakePage page;
    page.query = std::move(query);
    page.form = std::move(form);
    static host::Environment environment("en-US");
    component::DbView view(environment);
    view.OnStartPage(page);
    view.Set("ConnectionString", connection_string_);
    const std::vector<std::pair<std::string, std::string>> usual = {{"sql", "SELECT K, Note FROM " + table_},
                                                                    {"DeleteSQL", "DELETE FROM " + table_},
                                                                    {"EditOptions", "ADD UPDATE DELETE"},
                                                                    {"EditPrimaryKeys", "K"},
                                                                    {"OrderByFields", "Note"},
                                                                    {"DisplayNavBar", "none"}};
    view.Set("Hardened", is_hardened);
    for (const auto& [name, value] : usual) view.Set(name, value);
    for (const auto& [name, value] : settings) view.Set(name, value);
    view.WriteHtmlTable();
    error_ = view.GetSettings().ErrorMessage;
    view.OnEndPage();
    return page.body;
  }

  const std::string& Error() const { return error_; }

  /// What the links on the record numbers lead to, in the order of the notes.
  std::vector<Fields> Links() {
    const std::string grid = Show({});
    EXPECT_EQ(error_, "");
    std::vector<Fields> links;
    for (int number = 1;; ++number) {
      const std::size_t to = grid.find("\">" + std::to_string(number) + "</a>");
      if (to == grid.npos) return links;
      const std::string_view start = "href=\"";
      const std::size_t from = grid.rfind(start, to) + start.size();
      links.push_back(QueryOf(grid.substr(from, to - from)));
    }
  }

  /// What the browser posts when the button of the record's edit form is pressed, with another note.
  Fields Posted(Fields link, std::string_view button, const std::string& note) {
    link.push_back({"Morvu1FormEdit", "1"});
    Fields form = PostedByBrowser(Show(std::move(link)), button);
    EXPECT_EQ(error_, "");
    for (auto& field : form) {
      if (EndsWithNote(field.name)) field.value = note;
    }
    return form;
  }

 private:
  static bool EndsWithNote(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(), ::tolower);
    return name.ends_with("_form_note");
  }

  const std::string connection_string_;
  const std::string table_;
  std::string error_;
};

}  // namespace dralo::tests
