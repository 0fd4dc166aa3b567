#include <gtest/gtest.h>

#include <string>

#include "support/contains.h"
#include "support/view_page.h"

namespace dralo::driver {
namespace {

constexpr int kNotFound = 404;

/// A view of the records 1 to 3 beside a fourth one, of which the request asks for one.
struct ARecordThatIsAskedFor : testing::Test, tests::ViewPage {
  ARecordThatIsAskedFor() : ViewPage(ItemsTable(4)) {
    Set({{"sql", "SELECT ID, Name FROM Items WHERE ID < 4"},
         {"EditOptions", "ALL"},
         {"EditPrimaryKeys", "ID"},
         {"DeleteSQL", "DELETE FROM Items"},
         {"Hardened", true}});
  }

  int Status() {
    Render();
    return page.status;
  }
};

TEST_F(ARecordThatIsAskedFor, IsFoundWhenThePageShowsIt) {
  Ask({{"FormDisplay", "formOneRec"}, {"PK", "3"}});
  EXPECT_EQ(Status(), 200);
}

TEST_F(ARecordThatIsAskedFor, IsNotFoundOutsideAsWhereThereIsNone) {
  for (const char* key : {"4", "9", "x"}) {
    for (const char* form : {"", "1"}) {
      page.query.clear();
      page.status = 200;
      Ask({{"FormDisplay", "formOneRec"}, {"PK", key}, {"FormEdit", form}});
      EXPECT_EQ(Status(), kNotFound) << key;
    }
  }
}

TEST_F(ARecordThatIsAskedFor, IsNotFoundByASaveOrADelete) {
  Post({{"FormDisplay", "formOneRec"}, {"FormUpdate", "Save"}, {"PK", "4"}, {"_Form_Name", "New"}});
  EXPECT_EQ(Status(), kNotFound);
  page.form.clear();
  page.status = 200;
  page.Memory() = nullptr;
  Post({{"FormDisplay", "formOneRec"}, {"FormDelete", "Delete"}, {"PK", "4"}});
  EXPECT_EQ(Status(), kNotFound);
  EXPECT_EQ(database.Value("SELECT count(*) FROM Items WHERE Name <> 'New'"), "4");
}

TEST_F(ARecordThatIsAskedFor, KeepsTheStatusOfARefusedPost) {
  page.headers = {{"Sec-Fetch-Site", "cross-site"}, {"Content-Type", "application/x-www-form-urlencoded"}};
  Post({{"FormDisplay", "formOneRec"}, {"FormUpdate", "Save"}, {"PK", "4"}, {"_Form_Name", "New"}});
  EXPECT_EQ(Status(), 403);
  EXPECT_EQ(Status(), 403) << "the view is written once more";
}

TEST_F(ARecordThatIsAskedFor, LeavesTheStatusWhenHeadersAreSent) {
  page.has_unsent_headers = false;
  Ask({{"FormDisplay", "formOneRec"}, {"PK", "9"}});
  EXPECT_EQ(Status(), 200);
  EXPECT_TRUE(tests::Contains(ErrorMessage(), "There is no such record."));
}

TEST_F(ARecordThatIsAskedFor, LeavesTheStatusOfAPlainView) {
  Set("Hardened", false);
  Ask({{"FormDisplay", "formOneRec"}, {"PK", "9"}});
  EXPECT_EQ(Status(), 200);
}

}  // namespace
}  // namespace dralo::driver
