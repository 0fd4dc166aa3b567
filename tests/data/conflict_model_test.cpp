#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

#include "data/new_database.h"
#include "data/shorthand.h"
#include "unit/editing/model_visitor.h"

/// Over servers of their own, what the tests of saving have with SQLite.
namespace dralo::tests {

namespace {

class ConflictModelOfServers : public ::testing::TestWithParam<Server> {
 protected:
  void SetUp() override {
    connection_->Execute("CREATE TABLE T (ID INTEGER PRIMARY KEY, " + Name("Name") +
                         " VARCHAR(40) NOT NULL, " + Name("City") + " VARCHAR(40), " + Name("Stock") +
                         " INTEGER, " + Name("Active") + (IsPostgreSql() ? " BOOLEAN)" : " BIT(1))"));
    connection_->Execute("INSERT INTO T VALUES (1, 'Anna', 'Oslo', 3, TRUE)");
  }

  void Restore() const {
    connection_->Execute("UPDATE T SET " + Name("Name") + " = 'Anna', " + Name("City") + " = 'Oslo', " +
                         Name("Stock") + " = 3, " + Name("Active") + " = TRUE");
  }

  Texts Stored() const {
    const std::string type = IsPostgreSql() ? "VARCHAR(9)" : "CHAR(9)";
    const auto record =
        Read(connection_, "SELECT " + Name("Name") + ", COALESCE(" + Name("City") + ", ''), COALESCE(CAST(" +
                              Name("Stock") + " AS " + type + "), ''), CASE WHEN " + Name("Active") +
                              " THEN 'on' ELSE '' END FROM T");
    Texts texts;
    for (std::size_t i = 0; i < kModelFields.size(); ++i) {
      texts[kModelFields[i]] = std::get<std::string_view>(record->Fields()[i]->Value());
    }
    return texts;
  }

  NewServerDatabase database_{GetParam(), Way::kProvider};
  ConnectionPtr connection_ = Connect(database_.ConnectionString());

 private:
  static bool IsPostgreSql() { return GetParam() == Server::kPostgreSql; }

  /// With its capital letter.
  static std::string Name(const std::string& name) { return IsPostgreSql() ? '"' + name + '"' : name; }
};

INSTANTIATE_TEST_SUITE_P(Servers, ConflictModelOfServers,
                         ::testing::Values(Server::kPostgreSql, Server::kMariaDb), [](const auto& test) {
                           return std::string(test.param == Server::kPostgreSql ? "PostgreSql" : "MariaDb");
                         });

TEST_P(ConflictModelOfServers, NoValueIsOverwrittenThatItsWriterHasNotSeen) {
  SharedForm shop;
  shop.Use(database_.ConnectionString());
  unsigned seed = 1;
  int saves = 0;
  int refusals = 0;
  const auto run = [&](const std::vector<int>& order) {
    Restore();
    std::vector<ModelVisitor> visitors = {ModelVisitor(++seed), ModelVisitor(++seed)};
    std::string trace;
    for (const int visitor : order) {
      trace += std::to_string(visitor);
      SCOPED_TRACE("visitors " + trace + " before seed " + std::to_string(seed));
      visitors[static_cast<std::size_t>(visitor)].Step(shop, [&] { return Stored(); });
    }
    for (const ModelVisitor& visitor : visitors) {
      saves += visitor.saves;
      refusals += visitor.refusals;
    }
  };
  for (const std::vector<int>& steps : {std::vector{3, 3}, std::vector{2, 4}})
    ForEachInterleaving(steps, {}, run);
  EXPECT_GT(saves, 40);
  EXPECT_GT(refusals, 10) << "too few conflicts to prove something";
}

}  // namespace

}  // namespace dralo::tests
