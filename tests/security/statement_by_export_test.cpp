#include "security/attack.h"

namespace dralo::tests {
namespace {

class StatementByExport : public Attack {};
INSTANTIATE_TEST_SUITE_P(Targets, StatementByExport, kTargets, TargetName);

TEST_P(StatementByExport, WritesByALink) {
  Set({{"DisplayExcelIcon", false}});
  Get({{"SQL", "DELETE FROM Secrets"}, {"ToExcel.x", "1"}});
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM Secrets"), Lines{IsHardened() ? "1" : "0"});
}

TEST_P(StatementByExport, DownloadsAnotherTable) {
  const std::string answer = Get({{"SQL", "SELECT Word FROM Secrets"}, {"ToExcel.x", "1"}});
  EXPECT_EQ(Contains(answer, "sesame"), !IsHardened()) << answer;
}

}  // namespace
}  // namespace dralo::tests
