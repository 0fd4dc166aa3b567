// A program as somebody writes it who serves pages of his own. Ends with 0 when what it shows is right.

#include <dralo/dralo.h>

#include <exception>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

int failures = 0;

void Expect(bool is_right, std::string_view what) {
  if (is_right) return;
  std::cerr << "wrong: " << what << '\n';
  ++failures;
}

bool Has(std::string_view text, std::string_view part) { return text.find(part) != text.npos; }

std::shared_ptr<dralo::Connection> MakeShop(dralo::Environment& environment) {
  auto connection = environment.MakeConnection();
  connection->Open("Provider=SQLite;Data Source=:memory:");
  connection->Execute(
      "CREATE TABLE Customers(ID INTEGER PRIMARY KEY, Company VARCHAR(40), City VARCHAR(40))");
  auto insert = std::make_shared<dralo::Command>();
  insert->active_connection = connection;
  insert->command_text = "INSERT INTO Customers(Company, City) VALUES (?, ?)";
  for (const char* company : {"Ada's", "Bo's", "Cy's"}) {
    insert->parameters = {dralo::Variant(std::string(company)), dralo::Variant(std::string("Oslo"))};
    environment.MakeRecordset()->Open(*insert);
  }
  return connection;
}

void ShowGrid(dralo::Environment& environment, const std::shared_ptr<dralo::DBConnection>& shop) {
  dralo::Page page("/customers", "Morvu1CurrRecord=3");
  dralo::DbView view(environment);
  view.OnStartPage(page);
  view.SetDrConnection(shop);
  view.SetSql("SELECT ID, Company FROM Customers");
  view.SetRecordsPerPage(2);
  view.Set("displaytype", "grid");
  view.SetGridColAttributes(2, "class=\"company\"");
  view.WriteHtmlTable();
  Expect(view.ErrorMessage().empty(), view.ErrorMessage());
  Expect(Has(page.Body(), "Cy's") && !Has(page.Body(), "Bo's"), "the second page of two rows");
  Expect(Has(page.Body(), "class=\"company\""), "the attributes of the second column");
  Expect(view.FromRow() == 3 && view.RecordCount() == 3, "the numbers of the records");
  Expect(view.CurrentRecord(2) == dralo::Variant(std::string("Cy's")), "the record shown");
  Expect(view.DrConnection()->Connection() == shop->Connection(), "the connection that was set");
  Expect(view.DisplayType() == "grid" && std::get<std::string>(view.Get("SQL")) == view.Sql(), "names");
  view.OnEndPage();
}

void ShowRecordset(dralo::Environment& environment, dralo::Connection& shop) {
  dralo::Page page("/customers", "");
  dralo::DbView view(environment);
  view.OnStartPage(page);
  view.SetADORecordset(shop.Execute("SELECT City FROM Customers"));
  view.WriteHtmlTable();
  Expect(Has(page.Body(), "Oslo"), "the rows of a recordset");
}

void RefuseWhatIsWrong(dralo::Environment& environment) {
  dralo::DbView view(environment);
  try {
    view.Set("GridLinkIndex", 40'000);
    Expect(false, "a number that does not fit is refused");
  } catch (const std::invalid_argument& refusal) {
    Expect(Has(refusal.what(), "GridLinkIndex must be"), refusal.what());
  }
  try {
    view.SetConnectionString("Provider=None");
    Expect(false, "an unknown database is refused");
  } catch (const dralo::Error& error) {
    Expect(!error.Description().empty(), "the error says what is wrong");
  }
}

}  // namespace

int main() {
  try {
    dralo::Environment environment("en-US");
    auto shop = std::make_shared<dralo::DBConnection>(environment);
    shop->SetConnection(MakeShop(environment));
    shop->SetDatabaseEngine("mssql");
    Expect(shop->DatabaseEngine() == "MSSQL", "the engine");
    ShowGrid(environment, shop);
    ShowRecordset(environment, *shop->Connection());
    RefuseWhatIsWrong(environment);
  } catch (const std::exception& error) {
    Expect(false, error.what());
  }
  return failures == 0 ? 0 : 1;
}
