#include "security/attack.h"

namespace dralo::tests {
namespace {

class ButtonNotOffered : public Attack {};
INSTANTIATE_TEST_SUITE_P(Targets, ButtonNotOffered, kOneDatabase, TargetName);

TEST_P(ButtonNotOffered, DownloadsTheSpreadsheet) {
  Set({{"DisplayExcelIcon", false}});
  EXPECT_EQ(Post({{"ToExcel.x", "1"}}).starts_with("<table>"), !IsHardened());
  Set({{"DisplayExcelIcon", true}});
  EXPECT_TRUE(Post({{"ToExcel.x", "1"}}).starts_with("<table>"));
}

TEST_P(ButtonNotOffered, Counts) {
  Set({{"CountRecords", false}, {"DisplayType", "grid"}});
  const Asked requests[] = {{{"CountRecords", "on"}}, {{"LAST.x", "1"}}};
  for (const Asked& request : requests) {
    Post(request);
    EXPECT_EQ(count_, IsHardened() ? -1 : 2) << request.front().first;
  }
}

TEST_P(ButtonNotOffered, ShowsTheFormForANewRecord) {
  const std::string page = Get({{"FormDisplay", "formOneRec"}, {"FormAdd", "1"}});
  EXPECT_EQ(Contains(page, "name=\"Morvu1FormInsert\" value=\"1\""), !IsHardened()) << page;
}

TEST_P(ButtonNotOffered, ShowsAFormOfNoName) {
  const std::string page = Get({{"FormDisplay", "formoneREC"}});
  EXPECT_TRUE(Contains(page, "Morvu1FormDisplay\" value=\"form"));
  EXPECT_EQ(Contains(Get({{"FormDisplay", "else"}}), "else"), !IsHardened());
}

}  // namespace
}  // namespace dralo::tests
