#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "component/db_view.h"
#include "data/databases.h"
#include "dralo/page.h"
#include "support/contains.h"
#include "support/fake_page.h"
#include "support/form_digests.h"
#include "support/view_page.h"

namespace dralo::tests {

/// What is attacked: a page over one kind of database, as it is by default or hardened.
struct Target {
  const Database* database;
  bool is_hardened;
};

inline std::ostream& operator<<(std::ostream& out, const Target& target) {
  return out << target.database->name << (target.is_hardened ? "Hardened" : "Default");
}

inline std::string TargetName(const testing::TestParamInfo<Target>& info) {
  return info.param.database->name + (info.param.is_hardened ? "Hardened" : "Default");
}

inline const auto kTargets =
    testing::Values(Target{&kSqlite, false}, Target{&kSqlite, true}, Target{&kPostgreSql, false},
                    Target{&kPostgreSql, true}, Target{&kMariaDb, false}, Target{&kMariaDb, true});

inline const auto kHardenedTargets =
    testing::Values(Target{&kSqlite, true}, Target{&kPostgreSql, true}, Target{&kMariaDb, true});

inline const auto kOneDatabase = testing::Values(Target{&kSqlite, false}, Target{&kSqlite, true});

/// A page that shows and edits the notes of owner 7. Those of owner 8 and the table Secrets are outside.
///
/// | ID | Owner | Title  | Body   | Price | Link   |
/// |----|-------|--------|--------|-------|--------|
/// | 1  | 7     | first  | mine   | 10    | link 1 |
/// | 2  | 7     | second | mine   | 20    | link 2 |
/// | 3  | 8     | third  | theirs | 30    | link 3 |
/// | 4  | 8     | fourth | theirs | 40    | link 4 |
class Attack : public testing::TestWithParam<Target> {
 protected:
  static constexpr const char* kNotes = "SELECT ID, Title, Body, Price, Link FROM Notes WHERE Owner = 7";

  Attack() : database_(GetParam().database->make()), connection_(Connect(database_->ConnectionString())) {
    connection_->Execute(
        "CREATE TABLE Notes (ID INTEGER PRIMARY KEY, Owner INTEGER, Title VARCHAR(40), Body VARCHAR(40), "
        "Price INTEGER, Link VARCHAR(40))");
    connection_->Execute(
        "INSERT INTO Notes VALUES (1,7,'first','mine',10,'link 1'), (2,7,'second','mine',20,'link 2'), "
        "(3,8,'third','theirs',30,'link 3'), (4,8,'fourth','theirs',40,'link 4')");
    connection_->Execute("CREATE TABLE Secrets (ID INTEGER PRIMARY KEY, Word VARCHAR(40))");
    connection_->Execute("INSERT INTO Secrets VALUES (1,'sesame')");
    Set({{"sql", kNotes},
         {"DeleteSQL", "DELETE FROM Notes"},
         {"EditOptions", "UPDATE"},
         {"EditPrimaryKeys", "ID"},
         {"EditFieldsReadOnly", "ID,Price"},
         {"FormFieldsHide", "Link"}});
  }

  static bool IsHardened() { return GetParam().is_hardened; }

  /// For the page of the test; a property may be set again.
  void Set(const Script& script) { script_.insert(script_.end(), script.begin(), script.end()); }

  /// The page that answers the request, as its body. What it reported is in `message_`.
  std::string Get(const Asked& keys) { return Answer(keys, {}); }
  std::string Post(const Asked& keys) { return Answer({}, keys); }

  /// What is posted carries the digests of the record's form, which a hostile visitor knows as well.
  std::string Answer(const Asked& query, const Asked& form) { return Send(query, form, DigestsOf(form)); }

  using Digests = std::vector<std::pair<std::string, std::string>>;

  std::string Send(const Asked& query, const Asked& form, Digests digests = {}) {
    FakePage page;
    for (const auto& [name, value] : query) page.query.push_back({Key(name), std::string(value)});
    for (const auto& [name, value] : form) page.form.push_back({Key(name), std::string(value)});
    for (auto& [name, value] : digests) page.form.push_back({std::move(name), std::move(value)});
    return Rendered(page, script_);
  }

  std::string Rendered(FakePage& page, const Script& script) {
    component::DbView view(TestEnvironment());
    view.OnStartPage(page);
    view.Set("ConnectionString", database_->ConnectionString());
    view.Set("Hardened", IsHardened());
    for (const Setting& setting : script) view.Set(setting.property, setting.value);
    for (const Lookup& lookup : lookups_) {
      view.AddEditLookup(lookup.field, lookup.table, lookup.link, lookup.display, "", false);
    }
    if (configure_) configure_(view);
    view.WriteHtmlTable();
    for (const std::string& call : page.calls) {
      if (call.starts_with("Location: ")) location_ = call;
    }
    message_ = view.GetSettings().ErrorMessage;
    detail_ = view.GetSettings().ErrorDetail;
    count_ = view.GetSettings().RecordCount;
    view.OnEndPage();
    return page.body;
  }

  /// The records of a query, one per line.
  Lines Stored(const std::string& query) { return Rows(connection_, query); }

  /// A change of somebody else.
  void Run(const std::string& statement) { connection_->Execute(statement); }

  /// Everything that is outside of the page.
  Lines Outside() {
    Lines lines = Stored("SELECT * FROM Notes WHERE Owner <> 7 ORDER BY ID");
    for (const std::string& secret : Stored("SELECT * FROM Secrets ORDER BY ID")) lines.push_back(secret);
    return lines;
  }

  struct Lookup {
    const char *field, *table, *link, *display;
  };

  std::vector<Lookup> lookups_;
  std::function<void(component::DbView& view)> configure_;  ///< What the page sets besides.
  std::string location_;                                    ///< The latest address that a page led to.
  std::string message_;
  std::string detail_;
  std::int32_t count_ = 0;  ///< RecordCount after the page.

 private:
  /// Of the form of the posted key, if the page would show one.
  Digests DigestsOf(const Asked& posted) {
    const auto key = std::ranges::find(posted, std::string_view("PK"), &Asked::value_type::first);
    if (!IsHardened() || key == posted.end()) return {};
    FakePage page;
    for (const auto& [name, value] :
         {std::pair<std::string_view, std::string_view>{"FormDisplay", "formOneRec"},
          {"FormEdit", "1"},
          *key})
      page.query.push_back({Key(name), std::string(value)});
    Script script = script_;
    script.emplace_back("EditOptions", "UPDATE");
    return DigestsIn(Rendered(page, script));
  }

  static std::string Key(std::string_view name) { return "Morvu1" + std::string(name); }

  std::unique_ptr<NewDatabase> database_;
  ConnectionPtr connection_;
  Script script_;
};

}  // namespace dralo::tests
