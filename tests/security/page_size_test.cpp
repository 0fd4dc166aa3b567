#include "security/attack.h"

namespace dralo::tests {
namespace {

class PageSize : public Attack {
 protected:
  bool HasBoth(const char* size) {
    const std::string page = Get({{"maxrecords", size}});
    return Contains(page, ">first<") && Contains(page, ">second<");
  }
};
INSTANTIATE_TEST_SUITE_P(Targets, PageSize, kOneDatabase, TargetName);

TEST_P(PageSize, IsOneThatThePageDoesNotOffer) {
  Set({{"RecordsPerPage", 1}, {"DisplayType", "grid"}});
  EXPECT_EQ(HasBoth("32767"), !IsHardened());
  Set({{"DisplayRecordsPerPageSelect", true}, {"RecordsPerPageOptions", "1, 2"}});
  EXPECT_EQ(HasBoth("3"), !IsHardened());
  EXPECT_TRUE(HasBoth("2"));
}

TEST_P(PageSize, OpensTheForm) {
  EXPECT_EQ(Contains(Get({{"maxrecords", "1"}}), "FormDraloGrid1"), true);
  EXPECT_EQ(HasBoth("1"), IsHardened());
}

}  // namespace
}  // namespace dralo::tests
