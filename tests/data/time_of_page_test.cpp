#include <gtest/gtest.h>

#include <string>

#include "component/db_view.h"
#include "data/key_journey.h"
#include "data/new_database.h"

/// All statements of a hardened view end together when the Query Timeout is over, over every server alike.
namespace dralo::tests {

namespace {

class TimeOfPage : public ::testing::TestWithParam<Server> {
 protected:
  void SetUp() override {
    connection_->Execute(
        "CREATE TABLE Notes (K INTEGER PRIMARY KEY, Note VARCHAR(40), A VARCHAR(9), B VARCHAR(9), "
        "C VARCHAR(9), D VARCHAR(9))");
    connection_->Execute("INSERT INTO Notes VALUES (1, 'old', 'a', 'a', 'a', 'a')");
    const bool is_postgresql = GetParam() == Server::kPostgreSql;
    connection_->Execute(std::string("CREATE VIEW Slow AS SELECT 'a' AS Name FROM Notes WHERE ") +
                         (is_postgresql ? "CAST(pg_sleep(1) AS VARCHAR(9)) = ''" : "SLEEP(1) = 0"));
  }

  /// The edit form of the record, whose choices take a second for each field of `fields`.
  void ShowForm(bool is_hardened, std::initializer_list<const char*> fields) {
    FakePage page;
    page.query = {{"Morvu1FormDisplay", "formOneRec"}, {"Morvu1PK", "1"}, {"Morvu1FormEdit", "1"}};
    static host::Environment environment("en-US");
    component::DbView view(environment);
    view.OnStartPage(page);
    view.Set("ConnectionString", database_.ConnectionString() + ";Query Timeout=4");
    view.Set("Hardened", is_hardened);
    view.Set("sql", std::string("SELECT K, Note, A, B, C, D FROM Notes"));
    view.Set("EditOptions", std::string("UPDATE"));
    view.Set("EditPrimaryKeys", std::string("K"));
    for (const char* field : fields) view.AddEditLookup(field, "Slow", "Name", "Name", "", false);
    view.WriteHtmlTable();
    message_ = view.GetSettings().ErrorMessage;
    detail_ = view.GetSettings().ErrorDetail;
    view.OnEndPage();
  }

  NewServerDatabase database_{GetParam(), Way::kProvider};
  ConnectionPtr connection_ = Connect(database_.ConnectionString());
  std::string message_;
  std::string detail_;
};

INSTANTIATE_TEST_SUITE_P(Servers, TimeOfPage, ::testing::Values(Server::kPostgreSql, Server::kMariaDb),
                         [](const auto& test) {
                           return std::string(test.param == Server::kPostgreSql ? "PostgreSql" : "MariaDb");
                         });

TEST_P(TimeOfPage, IsSharedByTheStatementsOfAHardenedView) {
  ShowForm(true, {"Note", "A", "B", "C", "D"});
  const bool is_postgresql = GetParam() == Server::kPostgreSql;
  EXPECT_NE(detail_.find(is_postgresql ? "all those of the page have taken longer than the Query Timeout"
                                       : "The page has run out of time"),
            detail_.npos)
      << detail_;
}

TEST_P(TimeOfPage, IsThatOfEachStatementOfAPlainView) {
  ShowForm(false, {"Note", "A", "B", "C", "D"});
  EXPECT_EQ(message_, "");
}

TEST_P(TimeOfPage, IsLeftForTheFormOfASaveThatHasTakenAllOfIt) {
  KeyJourney journey(database_.ConnectionString() + ";Query Timeout=2", "Notes");
  journey.is_hardened = true;
  const auto form = journey.Posted(journey.Links().front(), "Morvu1FormUpdate", "typed");
  connection_->Begin();
  connection_->Execute("UPDATE Notes SET Note = 'locked'");
  const std::string page = journey.Show({}, form);
  connection_->Rollback();
  EXPECT_EQ(journey.Error(), "Message 9: The record was not saved.<br>");
  EXPECT_NE(page.find("value=\"typed\""), page.npos) << page;
  EXPECT_EQ(Rows(connection_, "SELECT Note FROM Notes"), Lines{"'old'"});
}

}  // namespace

}  // namespace dralo::tests
