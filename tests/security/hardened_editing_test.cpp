#include "dralo/change.h"
#include "security/attack.h"

/// What hardened forms do, over each database: digests, functions of the page, tokens of add forms.
namespace dralo::tests {
namespace {

using platform::Change;

class HardenedEditing : public Attack {
 protected:
  HardenedEditing() {
    Run("ALTER TABLE Notes ADD Token VARCHAR(40)");
    Run("CREATE UNIQUE INDEX NotesByToken ON Notes (Token)");
    constexpr const char* kAllNotes = "SELECT ID, Title, Body, Token FROM Notes";
    Set({{"sql", kAllNotes},
         {"FormSQL", kAllNotes},
         {"EditSQL", kAllNotes},
         {"EditOptions", "ALL"},
         {"EditNewPKStatement", "SELECT max(ID) + 1 FROM Notes"},
         {"FormFieldsHide", ""},
         {"EditFieldsReadOnly", ""}});
  }

  /// The form of note 1 as a browser posts it with another title.
  Asked FormOfFirst(const char* title) {
    form_ = Get({{"FormDisplay", "formOneRec"}, {"FormEdit", "1"}, {"PK", "1"}});
    return {{"FormDisplay", "formOneRec"}, {"FormUpdate", "Save"}, {"PK", "1"}, {"_Form_ID", "1"},
            {"_Form_Title", title},        {"_Form_Body", "mine"}};
  }

  /// Sends the form with the digests that it was made with.
  std::string SendForm(const Asked& posted) { return Send({}, posted, DigestsIn(form_)); }

  void OnSave(std::function<void(Change&)> handle) {
    configure_ = [handle = std::move(handle)](component::DbView& view) {
      view.Set("OnSave", platform::ObjectPtr(platform::MakeHandler(handle)));
    };
  }

  std::string Titles() {
    std::string titles;
    for (const std::string& title : Stored("SELECT Title FROM Notes ORDER BY ID"))
      titles.append(titles.empty() ? "" : " ").append(title);
    return titles;
  }

  std::string form_;
};
INSTANTIATE_TEST_SUITE_P(Targets, HardenedEditing, kHardenedTargets, TargetName);

TEST_P(HardenedEditing, KeepsWhatSomebodyElseHasChanged) {
  const Asked form = FormOfFirst("typed");
  Run("UPDATE Notes SET Title = 'newer' WHERE ID = 1");
  EXPECT_TRUE(Contains(SendForm(form), "<span class=\"DraloNewerValue\">newer</span>")) << detail_;
  EXPECT_EQ(Titles(), "'newer' 'second' 'third' 'fourth'");
}

TEST_P(HardenedEditing, SavesBesideWhatSomebodyElseHasChanged) {
  const Asked form = FormOfFirst("typed");
  Run("UPDATE Notes SET Body = 'newer' WHERE ID = 1");
  SendForm(form);
  EXPECT_EQ(Stored("SELECT Title, Body FROM Notes WHERE ID = 1"), Lines{"'typed' 'newer'"}) << detail_;
}

/// PostgreSQL takes a name without quotes for one of small letters.
TEST_P(HardenedEditing, OpensRecordsWhoseKeyHasCapitalLetters) {
  const std::string quote(1, GetParam().database->quote);
  const std::string id = quote + "Id" + quote;
  Run("CREATE TABLE Mixed (" + id + " INTEGER PRIMARY KEY, Name VARCHAR(20))");
  Run("INSERT INTO Mixed VALUES (1, 'a horn')");
  const std::string all = "SELECT " + id + ", Name FROM Mixed";
  const char* const sql = all.c_str();
  Set({{"sql", sql}, {"FormSQL", sql}, {"EditSQL", sql}, {"EditPrimaryKeys", "Id"}});
  EXPECT_TRUE(Contains(Get({{"FormDisplay", "formOneRec"}, {"PK", "1"}}), "a horn")) << detail_;
}

/// Somebody else saves between the look at the record and its writing. SQLite lets nobody in there.
TEST_P(HardenedEditing, ShowsTheNewerValueAfterALostRace) {
  if (GetParam().database == &kSqlite) return;
  const Asked form = FormOfFirst("typed");
  int calls = 0;
  OnSave([&](Change&) {
    if (++calls == 1) Run("UPDATE Notes SET Title = 'faster' WHERE ID = 1");
  });
  EXPECT_TRUE(Contains(SendForm(form), "<span class=\"DraloNewerValue\">faster</span>")) << detail_;
  EXPECT_EQ(Titles(), "'faster' 'second' 'third' 'fourth'");
  EXPECT_EQ(message_, "") << detail_;
}

TEST_P(HardenedEditing, ObeysTheFunctionsOfThePage) {
  OnSave([](Change& change) {
    EXPECT_EQ(change.Operation(), "update");
    change.Set("Body", std::string("set"));
  });
  SendForm(FormOfFirst("typed"));
  EXPECT_EQ(Stored("SELECT Title, Body FROM Notes WHERE ID = 1"), Lines{"'typed' 'set'"}) << detail_;

  OnSave([](Change& change) { change.Refuse("Title", "Not <this>."); });
  EXPECT_TRUE(Contains(SendForm(FormOfFirst("other")), "Not &lt;this&gt;."));
  EXPECT_EQ(Stored("SELECT Title FROM Notes WHERE ID = 1"), Lines{"'typed'"});
}

TEST_P(HardenedEditing, UndoesAllWhenAFunctionThrowsAfterTheWriting) {
  configure_ = [](component::DbView& view) {
    view.Set("OnSaved", platform::ObjectPtr(platform::MakeHandler(
                            [](Change&) { throw platform::Error("no room in the log"); })));
  };
  SendForm(FormOfFirst("typed"));
  EXPECT_EQ(Titles(), "'first' 'second' 'third' 'fourth'");
  EXPECT_TRUE(Contains(message_, "Message ")) << detail_;
}

TEST_P(HardenedEditing, LetsAFunctionRefuseADelete) {
  configure_ = [](component::DbView& view) {
    view.Set("OnDelete", platform::ObjectPtr(
                             platform::MakeHandler([](Change& change) { change.Refuse("", "Needed."); })));
  };
  Asked form = FormOfFirst("first");
  form[1] = {"FormDelete", "Delete"};
  EXPECT_TRUE(Contains(SendForm(form), "Needed."));
  EXPECT_EQ(Titles(), "'first' 'second' 'third' 'fourth'");
  configure_ = nullptr;
  SendForm(form);
  EXPECT_EQ(Titles(), "'second' 'third' 'fourth'");
}

TEST_P(HardenedEditing, AsksBeforeItAddsAnEqualRecord) {
  form_ = Get({{"FormDisplay", "formOneRec"}, {"FormAdd", "1"}});
  constexpr std::string_view kStart = "name=\"Morvu1After\" value=\"";
  const std::size_t start = form_.find(kStart) + kStart.size();
  const std::string greatest = form_.substr(start, form_.find('"', start) - start);
  EXPECT_EQ(greatest, "4") << detail_;
  const Asked form = {{"FormDisplay", "formOneRec"}, {"FormInsert", "1"},    {"FormUpdate", "Save"},
                      {"_Form_Title", "new"},        {"_Form_Body", "mine"}, {"After", greatest}};
  Send({}, form);
  EXPECT_TRUE(Contains(Send({}, form), "Such a record was added already.")) << detail_;
  EXPECT_EQ(Titles(), "'first' 'second' 'third' 'fourth' 'new'");
}

/// A form to add a note, with its token.
class HardenedAdding : public HardenedEditing {
 protected:
  HardenedAdding() {
    Set({{"EditInsertToken", "Token"}});
    const std::string form = Get({{"FormDisplay", "formOneRec"}, {"FormAdd", "1"}});
    constexpr std::string_view kStart = "name=\"Morvu1InsertToken\" value=\"";
    const std::size_t start = form.find(kStart) + kStart.size();
    token_ = form.substr(start, form.find('"', start) - start);
    is_shown_ = Contains(form, "_Form_Token");
  }

  void PostForm(const char* title = "new") {
    location_.clear();
    Send({}, {{"FormDisplay", "formOneRec"},
              {"FormInsert", "1"},
              {"FormUpdate", "Save"},
              {"_Form_Title", title},
              {"_Form_Body", "mine"},
              {"InsertToken", token_}});
  }

  std::string token_;
  bool is_shown_ = false;
};
INSTANTIATE_TEST_SUITE_P(Targets, HardenedAdding, kHardenedTargets, TargetName);

TEST_P(HardenedAdding, CarriesATokenThatNoFormShows) {
  EXPECT_EQ(token_.size(), 22U);
  EXPECT_FALSE(is_shown_);
  EXPECT_FALSE(Contains(Get({{"FormDisplay", "formOneRec"}, {"FormEdit", "1"}, {"PK", "1"}}), "_Form_Token"));
}

TEST_P(HardenedAdding, AddsOneRecordHoweverOftenItIsPosted) {
  for (int posts = 0; posts < 3; ++posts) {
    PostForm();
    EXPECT_EQ(message_, "") << detail_;
    EXPECT_TRUE(Contains(location_, "&Morvu1PK=5&Morvu1Done=i")) << location_;
  }
  EXPECT_EQ(Titles(), "'first' 'second' 'third' 'fourth' 'new'");
  EXPECT_EQ(Stored("SELECT Token FROM Notes WHERE ID = 5"), Lines{"'" + token_ + "'"});
}

TEST_P(HardenedAdding, AddsEqualRecordsOfDifferentForms) {
  PostForm();
  token_ = std::string(21, 'B') + "A";
  PostForm();
  EXPECT_EQ(Titles(), "'first' 'second' 'third' 'fourth' 'new' 'new'") << detail_;
}

/// The other post of the form is faster by so little that it was not seen at the start.
TEST_P(HardenedAdding, LeadsToTheRecordThatAFasterPostHasAdded) {
  if (GetParam().database == &kSqlite) return;
  OnSave(
      [&](Change&) { Run("INSERT INTO Notes (ID, Title, Token) VALUES (8, 'faster', '" + token_ + "')"); });
  PostForm();
  EXPECT_EQ(message_, "") << detail_;
  EXPECT_TRUE(Contains(location_, "&Morvu1PK=8&Morvu1Done=i")) << location_;
  EXPECT_EQ(Titles(), "'first' 'second' 'third' 'fourth' 'faster'");
}

TEST_P(HardenedAdding, TakesNoOtherWordForAToken) {
  token_ = "guess";
  PostForm();
  EXPECT_EQ(Titles(), "'first' 'second' 'third' 'fourth' 'new'") << detail_;
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM Notes WHERE Token = 'guess' OR Token IS NULL AND ID = 5"),
            Lines{"0"});
}

TEST_P(HardenedAdding, TakesNoTokenFromALink) {
  const std::string form =
      Get({{"FormDisplay", "formOneRec"}, {"FormAdd", "1"}, {"InsertToken", std::string(21, 'C') + "A"}});
  EXPECT_FALSE(Contains(form, "CCCC"));
}

}  // namespace
}  // namespace dralo::tests
