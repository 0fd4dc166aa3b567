/// Renders a page of 20 rows of the table "orders" many times in one process, each page with a view of its
/// own, as a server would:
///
///   bench_grid_page DATABASE FIRST PAGES [SORT] [open | hardened]
///
/// DATABASE is a file of SQLite or a connection string. FIRST is the number of records before the page; SORT
/// a column to order by ("" for none); "open" opens the database for every page instead of keeping the
/// connection, "hardened" hardens the pages. They go to standard output.
#include <dralo/dralo.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "connection_string.h"

namespace {

using dralo::Environment;
using dralo::Page;

void RenderPage(Environment& environment, const std::string& connection_string,
                const std::string& query_string, std::string_view sort, bool is_hardened) {
  Page page("/orders", query_string);
  page.send = [](const Page&, std::string_view piece) {
    if (write(STDOUT_FILENO, piece.data(), piece.size()) < 0) std::exit(3);
  };
  dralo::DbView view(environment);
  view.OnStartPage(page);
  view.SetHardened(is_hardened);
  view.SetConnectionString(connection_string);
  view.SetSql("SELECT * FROM orders");
  if (!sort.empty()) view.SetOrderByFields(sort);
  view.WriteHtmlTable();
  view.OnEndPage();
  if (const std::string errors = view.ErrorMessage(); !errors.empty()) {
    std::cerr << errors << '\n';
    std::exit(1);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::cerr << "usage: bench_grid_page DATABASE FIRST PAGES [SORT] [open | hardened]\n";
    return 2;
  }
  const std::string connection_string = ConnectionStringOf(argv[1]);
  const std::string query_string = "Morvu1CurrRecord=" + std::to_string(std::atol(argv[2]) + 1);
  const std::string_view sort = argc > 4 ? argv[4] : "";
  const std::string_view how = argc > 5 ? argv[5] : "";
  Environment environment("en-US");
  for (long pages = std::atol(argv[3]); pages > 0; --pages) {
    RenderPage(environment, connection_string, query_string, sort, how == "hardened");
    if (how == "open") Environment::CloseIdleConnections();
  }
  return 0;
}
