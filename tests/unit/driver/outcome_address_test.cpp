#include <gtest/gtest.h>

#include <string>

#include "support/contains.h"
#include "support/form_digests.h"
#include "support/view_page.h"

namespace dralo::driver {
namespace {

using tests::ViewPage;

/// A hardened view with three records, whose form was posted.
struct APostedChangeOfAHardenedView : testing::Test {
  ViewPage page{ViewPage::ItemsTable(3)};

  APostedChangeOfAHardenedView() {
    page.Set({{"sql", "SELECT ID, Name FROM Items"},
              {"EditOptions", "ALL"},
              {"EditPrimaryKeys", "ID"},
              {"EditNewPKStatement", "autoincrement"},
              {"DeleteSQL", "DELETE FROM Items"},
              {"DisplayRecordsPerPageSelect", true},
              {"Hardened", true}});
  }

  void PostUpdate() {
    PostDigests();
    page.Post({{"FormUpdate", "Save"}, {"PK", "2"}, {"_Form_ID", "2"}, {"_Form_Name", "New"}});
  }

  /// Those of the second record, as its form shows them.
  void PostDigests() {
    page.Ask({{"FormDisplay", "formOneRec"}, {"FormEdit", "1"}, {"PK", "2"}});
    for (auto& [name, value] : tests::DigestsIn(page.Render())) page.page.form.push_back({name, value});
    page.page.query.clear();
    page.page.calls.clear();
  }

  /// The address of the redirect; empty when the page follows.
  std::string Location() {
    page.view.ReceivePost();
    for (const std::string& call : page.page.calls) {
      if (call.starts_with("Location: ")) return call.substr(10);
    }
    return {};
  }
};

TEST_F(APostedChangeOfAHardenedView, LeadsToTheRecordThatWasSaved) {
  PostUpdate();
  page.Post({{"CurrRecord", "1"}, {"maxrecords", "10"}, {"OrderByFields", "2"}, {"OrderByDesc", "True"}});
  page.page.form.push_back({"Search", "a&b"});

  EXPECT_EQ(Location(),
            "/p?Morvu1CurrRecord=1&Morvu1maxrecords=10&Morvu1CountRecords=on&Morvu1OrderByFields=2"
            "&Morvu1OrderByDesc=True&Search=a%26b&Morvu1FormDisplay=formOneRec&Morvu1PK=2&Morvu1Done=u");
  EXPECT_EQ(page.page.status, 303);
  EXPECT_EQ(page.page.calls.back(), "end");
  EXPECT_EQ(page.database.Value("SELECT Name FROM Items WHERE ID = 2"), "New");
}

TEST_F(APostedChangeOfAHardenedView, LeadsToTheRecordThatWasAdded) {
  page.Post({{"FormUpdate", "Save"}, {"FormInsert", "1"}, {"_Form_Name", "New"}});
  EXPECT_EQ(Location(),
            "/p?Morvu1CurrRecord=1&Morvu1maxrecords=20&Morvu1CountRecords=on"
            "&Morvu1FormDisplay=formOneRec&Morvu1PK=4&Morvu1Done=i");
  EXPECT_EQ(page.database.Value("SELECT ID FROM Items WHERE Name = 'New'"), "4");
}

TEST_F(APostedChangeOfAHardenedView, LeadsToARecordOfSeveralKeysThatWasAdded) {
  page.database.Run("CREATE TABLE Lines(Shop VARCHAR(20), Nr INTEGER, PRIMARY KEY(Shop, Nr))");
  page.Set({{"FormSQL", ""},
            {"EditSQL", ""},
            {"sql", "SELECT Shop, Nr FROM Lines"},
            {"EditPrimaryKeys", "Shop,Nr"},
            {"EditNewPKStatement", ","}});
  page.Post({{"FormUpdate", "Save"}, {"FormInsert", "1"}, {"_Form_Shop", "a,b"}, {"_Form_Nr", "7"}});
  EXPECT_TRUE(tests::Contains(Location(), "&Morvu1PK=a%252Cb%2C7&Morvu1Done=i")) << page.ErrorMessage();
}

TEST_F(APostedChangeOfAHardenedView, LeadsToTheListWhenItNoLongerShowsTheRecord) {
  page.Set({{"FormSQL", "SELECT ID, Name FROM Items WHERE Name <> 'New'"},
            {"EditSQL", "SELECT ID, Name FROM Items"}});
  PostUpdate();
  EXPECT_EQ(Location(), "/p?Morvu1CurrRecord=1&Morvu1maxrecords=20&Morvu1CountRecords=on&Morvu1Done=u");
  page.page.form.clear();
  page.page.calls.clear();
  page.page.Memory() = nullptr;
  page.Post({{"FormUpdate", "Save"}, {"FormInsert", "1"}, {"_Form_Name", "New"}});
  EXPECT_EQ(Location(), "/p?Morvu1CurrRecord=1&Morvu1maxrecords=20&Morvu1CountRecords=on&Morvu1Done=i");
  EXPECT_EQ(page.database.Value("SELECT count(*) FROM Items WHERE Name = 'New'"), "2");
}

TEST_F(APostedChangeOfAHardenedView, LeadsToTheListWhenTheRecordIsGone) {
  PostDigests();
  page.Post({{"FormDelete", "Delete"}, {"PK", "2"}, {"_Form_ID", "2"}});
  EXPECT_EQ(Location(), "/p?Morvu1CurrRecord=1&Morvu1maxrecords=20&Morvu1CountRecords=on&Morvu1Done=d");
}

TEST_F(APostedChangeOfAHardenedView, LeadsNowhereWhenNothingWasChanged) {
  page.Post({{"FormUpdate", "Save"}, {"PK", "9"}, {"_Form_ID", "9"}, {"_Form_Name", "New"}});
  EXPECT_EQ(Location(), "");
  EXPECT_NE(page.ErrorMessage(), "");
}

TEST_F(APostedChangeOfAHardenedView, LeadsNowhereOnceHeadersAreSent) {
  PostUpdate();
  page.page.has_unsent_headers = false;
  EXPECT_EQ(Location(), "");
  EXPECT_TRUE(tests::Contains(page.Render(), "[Record saved ok]"));
}

TEST_F(APostedChangeOfAHardenedView, LeadsNowhereWhenTheAddressWouldBeTooLong) {
  PostUpdate();
  page.page.form.push_back({"Search", std::string(2'000, 'a')});
  EXPECT_EQ(Location(), "");
  EXPECT_EQ(page.database.Value("SELECT Name FROM Items WHERE ID = 2"), "New");
}

TEST_F(APostedChangeOfAHardenedView, LeadsToNoOtherHost) {
  page.page.script_name = "//evil.example/a b\r\nc";
  PostUpdate();
  EXPECT_TRUE(Location().starts_with("/evil.example/a%20b%0D%0Ac?"));
}

TEST_F(APostedChangeOfAHardenedView, IsReceivedByThePageItselfWhenNobodyCalls) {
  PostUpdate();
  page.Render();
  EXPECT_EQ(page.page.status, 303);
}

TEST_F(APostedChangeOfAHardenedView, OfAPlainViewIsCarriedOutOnceAndShown) {
  page.Set("Hardened", false);
  PostUpdate();
  EXPECT_EQ(Location(), "");
  EXPECT_EQ(page.database.Value("SELECT Name FROM Items WHERE ID = 2"), "New");
  EXPECT_EQ(page.page.status, 200);
  EXPECT_EQ(page.ErrorMessage(), "");
}

}  // namespace
}  // namespace dralo::driver
