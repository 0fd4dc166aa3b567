// What a program of one's own does with the installed library: a page, a download that ends the page, a
// failure.
#include <dralo/dralo.h>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <string_view>

namespace {

void Expect(bool is_true, std::string_view what) {
  if (is_true) return;
  std::cerr << "not so: " << what << '\n';
  std::exit(1);
}

dralo::DbView Goods(dralo::Environment& environment, dralo::Page& page) {
  dralo::DbView view(environment);
  view.OnStartPage(page);
  view.SetConnectionString("Provider=SQLite;Data Source=:memory:");
  view.SetSql("SELECT 'tea' AS Name, 5 AS Price UNION SELECT 'salt', 1");
  view.SetOrderByFields("Price");
  return view;
}

void MakesAPage(dralo::Environment& environment) {
  dralo::Page page("/goods", "");
  dralo::DbView view = Goods(environment, page);
  view.WriteHtmlTable();
  Expect(page.Body().find("Records (1..2) of 2") != page.Body().npos, "the page counts two records");
  Expect(page.Body().find("salt") < page.Body().find("tea"), "the page is sorted");
  Expect(view.ErrorMessage().empty(), view.ErrorMessage());
}

void EndsThePageOfADownload(dralo::Environment& environment) {
  dralo::Page page("/goods", "Morvu1ToExcel.x=1");
  dralo::DbView view = Goods(environment, page);
  bool has_ended = false;
  try {
    view.WriteHtmlTable();
  } catch (const dralo::Page::Ended&) {
    has_ended = true;
  }
  Expect(has_ended, "a download ends the page");
  Expect(page.Body().find("salt") != page.Body().npos, "the download has the records");
}

void ReportsFailures(dralo::Environment& environment) {
  const std::shared_ptr<dralo::Connection> connection = environment.MakeConnection();
  bool has_failed = false;
  try {
    connection->Open("Provider=SQLite;Data Source=/no/such/folder/shop.db");
  } catch (const dralo::Error& error) {
    has_failed = error.Description().find("/no/such/folder/shop.db") != std::string_view::npos;
  }
  Expect(has_failed, "a failure names the file");
}

}  // namespace

int main() {
  dralo::Environment environment("en-US");
  MakesAPage(environment);
  EndsThePageOfADownload(environment);
  ReportsFailures(environment);
  std::cout << "the library works\n";
}
