#include "editing/derived_table.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace dralo::editing {
namespace {

std::string Table(std::string_view sql) { return DerivedTable(sql, {}).text; }

TEST(DerivedTable, IsTheStatementInBrackets) {
  EXPECT_EQ(Table("SELECT a FROM t"), "(SELECT a FROM t\n) DRTEMPTABLE");
  EXPECT_EQ(Table("SELECT a FROM t -- why"), "(SELECT a FROM t -- why\n) DRTEMPTABLE");
}

TEST(DerivedTable, HasNoEndOfAStatement) {
  EXPECT_EQ(Table("SELECT a FROM t ; \n"), "(SELECT a FROM t \n) DRTEMPTABLE");
  EXPECT_EQ(Table("SELECT a FROM t; -- all"), "(SELECT a FROM t\n) DRTEMPTABLE");
  EXPECT_EQ(Table("SELECT ';' FROM t"), "(SELECT ';' FROM t\n) DRTEMPTABLE");
}

TEST(DerivedTable, HasNoOrderThatDecidesNothing) {
  EXPECT_EQ(Table("SELECT a FROM t ORDER BY a DESC"), "(SELECT a FROM t \n) DRTEMPTABLE");
  EXPECT_EQ(Table("SELECT a FROM t order /* x */ by a;"), "(SELECT a FROM t \n) DRTEMPTABLE");
  for (const char* kept :
       {"SELECT a FROM t ORDER BY a LIMIT 5", "SELECT TOP 5 a FROM t ORDER BY a",
        "SELECT a FROM t ORDER BY a OFFSET 2 ROWS", "SELECT a, ROW_NUMBER() OVER (ORDER BY a) FROM t",
        "SELECT a FROM (SELECT a FROM t ORDER BY a LIMIT 1) x", "SELECT 'ORDER BY' FROM t",
        "SELECT a AS \"order by\" FROM t"}) {
    EXPECT_EQ(Table(kept), std::string("(") + kept + "\n) DRTEMPTABLE");
  }
}

TEST(DerivedTable, KeepsTheValuesOfWhatIsKept) {
  const std::vector<platform::Variant> values = {std::int64_t{1}, std::int64_t{2}, std::int64_t{3}};
  EXPECT_EQ(DerivedTable("SELECT ? FROM t WHERE b = ? AND c = ?", values).parameters, values);
  const auto cut = DerivedTable("SELECT ? FROM t WHERE b = ? ORDER BY a + ?", values);
  EXPECT_EQ(cut.parameters, (std::vector<platform::Variant>{std::int64_t{1}, std::int64_t{2}}));
}

}  // namespace
}  // namespace dralo::editing
