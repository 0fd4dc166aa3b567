#include <dralo/dralo.h>

#include "support/stalling_proxy.h"
#include "unit/database/mariadb/native_test.h"

namespace dralo::tests {

namespace {

/// Pages whose statements have come before, so that the server has them prepared.
class MariaDbTrips : public MariaDbNative {
 protected:
  MariaDbTrips() {
    Run("CREATE TABLE Goods (ID INTEGER AUTO_INCREMENT PRIMARY KEY, Name VARCHAR(20), Stock INTEGER)");
    Run("INSERT INTO Goods SELECT seq, CONCAT('Nr. ', seq), seq FROM seq_1_to_100");
  }

  /// The trips of the second of two pages, of which `form` and `query` are the requests.
  int TripsOf(const std::string& query, const std::string& first_form = {}, const std::string& form = {}) {
    Render(query, first_form);
    const int before = proxy_.Trips();
    page_ = Render(query, form);
    return proxy_.Trips() - before;
  }

  bool PageHas(std::string_view part) const { return page_.find(part) != std::string::npos; }

 private:
  std::string Render(const std::string& query, const std::string& form) {
    dralo::Page page("/goods", query, form);
    dralo::DbView view(environment_);
    view.OnStartPage(page);
    view.SetConnectionString(database_.ConnectionString() + ";Port=" + proxy_.Port());
    view.SetSql("SELECT ID, Name, Stock FROM Goods");
    view.SetEditSQL("SELECT ID, Name, Stock FROM Goods");
    view.SetEditPrimaryKeys("ID");
    view.SetEditOptions("ADD UPDATE DELETE");
    view.SetOrderByFields("Name");
    view.WriteHtmlTable();
    view.OnEndPage();
    EXPECT_EQ(view.ErrorMessage(), "");
    return page.Body();
  }

  StallingProxy proxy_{PortOf(Server::kMariaDb)};
  dralo::Environment environment_{"en-US"};
  std::string page_;
};

TEST_F(MariaDbTrips, OfAGridAreOneForTheCountAndOneForTheRecords) {
  EXPECT_EQ(TripsOf("Morvu1CurrRecord=21"), 2);
  EXPECT_TRUE(PageHas("Records (21..40) of 100"));
}

TEST_F(MariaDbTrips, OfARecordByItsKeyAreTwoBesideTheCount) {
  EXPECT_EQ(TripsOf("Morvu1FormDisplay=formOneRec&Morvu1PK=7&Morvu1_Form_ID=7&Morvu1FormEdit=Edit"), 2 + 1);
  EXPECT_TRUE(PageHas("Nr. 7"));
}

TEST_F(MariaDbTrips, OfASaveAreSixBesideTheGridBehindIt) {
  const auto form = [](const char* stock) {
    return "Morvu1FormUpdate=Save&Morvu1PK=7&Morvu1_Form_ID=7&Morvu1_Form_Name=Nr.+7&Morvu1_Form_Stock=" +
           std::string(stock);
  };
  EXPECT_EQ(TripsOf("", form("8"), form("9")), 6 + 2);
  EXPECT_EQ(Ask("SELECT Stock FROM Goods WHERE ID = 7"), Lines{"9"});
}

}  // namespace

}  // namespace dralo::tests
