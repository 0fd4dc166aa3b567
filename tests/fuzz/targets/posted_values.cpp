#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "component/db_view.h"
#include "fuzz/fuzz_input.h"
#include "hosts/cpp/environment.h"
#include "support/fake_page.h"
#include "support/form_digests.h"
#include "support/temporary_database.h"

namespace dralo::fuzz {
namespace {

constexpr std::string_view kRows =
    "DELETE FROM Notes;"
    "INSERT INTO Notes VALUES(1,7,'One',1.5,1,'2024-05-03','a',NULL),(2,7,'Two',NULL,0,NULL,'b','x'),"
    "(3,8,'Three',3,1,'2024-05-03 14:07:09','c',NULL),(4,8,'Four',4,NULL,NULL,NULL,NULL)";

/// The notes of owner 7, beside those of owner 8 and a table that is nobody's business. The same for all
/// inputs.
class Notes {
 public:
  Notes() {
    database_.Run(kRows);
    untouched_ = Text("");
  }

  std::string ConnectionString() const { return database_.ConnectionString(); }

  void Restore() {
    if (Text("") != untouched_) database_.Run(kRows);
  }

  std::string Outside() const {
    return Text("WHERE Owner <> 7") + database_.Value("SELECT Word FROM Secrets");
  }

 private:
  std::string Text(const std::string& where) const {
    return database_.Value(
        "SELECT group_concat(Note, char(10)) FROM (SELECT quote(ID)||quote(Owner)||quote(Title)||quote(Price)"
        "||quote(Done)||quote(Due)||quote(Body)||quote(Hidden) AS Note FROM Notes " +
        where + " ORDER BY ID)");
  }

  tests::TemporaryDatabase database_{
      "CREATE TABLE Notes(ID INTEGER PRIMARY KEY, Owner INTEGER NOT NULL DEFAULT 7, Title VARCHAR(20),"
      " Price DECIMAL(8,2), Done BOOLEAN, Due DATETIME, Body MEMO, Hidden TEXT);"
      "CREATE TABLE Secrets(Word TEXT); INSERT INTO Secrets VALUES('sesame')"};
  std::string untouched_;  ///< All notes as kRows makes them.
};

/// One visitor of a hardened page that shows and edits the notes of owner 7.
class Visitor {
 public:
  explicit Visitor(const Notes& notes) : notes_(notes) {}

  std::string Answer(tests::FakePage& page) {
    static host::Environment environment("en-US");
    component::DbView view(environment);
    view.OnStartPage(page);
    const auto set = [&](std::string_view name, std::string_view text) { view.Set(name, std::string(text)); };
    constexpr std::string_view kNotes =
        "SELECT ID, Title, Price, Done, Due, Body, Hidden FROM Notes WHERE Owner = 7";
    view.Set("Hardened", true);
    set("ConnectionString", notes_.ConnectionString());
    set("sql", kNotes);
    set("EditSQL", kNotes);
    set("DeleteSQL", "DELETE FROM Notes");
    set("EditPrimaryKeys", "ID");
    set("EditNewPKStatement", "autoincrement");
    set("EditOptions", "UPDATE DELETE ADD");
    set("FormFieldsHide", "Hidden");
    view.WriteHtmlTable();
    Require(view.GetSettings().ErrorMessage.find("SELECT") == std::string::npos,
            "no message shows a statement");
    view.OnEndPage();
    return page.body;
  }

 private:
  const Notes& notes_;
};

/// The buttons of forms.
constexpr std::string_view kButtons[] = {"FormUpdate", "FormDelete", "FormInsert", "FormDeleteConfirmed",
                                         "FormEdit"};
constexpr std::string_view kFields[] = {"_Form_Title", "_Form_Price", "_Form_Done",  "_Form_Due",
                                        "_Form_Body",  "_Form_ID",    "_Form_Owner", "_Form_Hidden",
                                        "_Was_Title",  "Token"};

std::string Key(std::string_view name) { return "Morvu1" + std::string(name); }

}  // namespace

/// A digit for each of two buttons, and one for the record whose digests are posted; the key; the values of
/// kFields as far as there are any, each behind "=".
void Try(std::string_view input) {
  static Notes notes;
  notes.Restore();
  const std::string outside = notes.Outside();
  Visitor visitor(notes);

  Parts parts(input);
  tests::FakePage post;
  post.form.push_back({Key("FormDisplay"), "formOneRec"});
  for (int button = 0; button < 2; ++button) {
    post.form.push_back({Key(kButtons[parts.Choose(std::size(kButtons))]), "1"});
  }
  const std::size_t opened = parts.Choose(3);
  post.form.push_back({Key("PK"), std::string(parts.Next())});
  for (const std::string_view field : kFields) {
    const std::string_view value = parts.Next();
    if (value.starts_with('=')) post.form.push_back({Key(field), std::string(value.substr(1))});
  }
  if (opened != 0) {
    tests::FakePage form;
    form.query = {
        {Key("FormDisplay"), "formOneRec"}, {Key("FormEdit"), "1"}, {Key("PK"), std::to_string(opened)}};
    for (auto& [name, value] : tests::DigestsIn(visitor.Answer(form))) {
      post.form.push_back({std::move(name), std::move(value)});
    }
  }
  const std::string page = visitor.Answer(post);
  Require(notes.Outside() == outside, "nothing outside of the page is changed");
  for (const std::string_view word : {"sesame", "Three"}) {
    const bool is_echo = input.find(word) != input.npos;
    Require(is_echo || page.find(word) == page.npos, "nothing outside is shown");
  }
}

}  // namespace dralo::fuzz
