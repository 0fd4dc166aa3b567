/// Renders a page of 20 rows of the table "orders" many times in one process, each page with a view of its
/// own, as a server would:
///
///   bench_grid_page DATABASE FIRST PAGES [SORT] [open]
///
/// DATABASE is a file of SQLite or a connection string. FIRST is the number of records before the page; SORT
/// a column to order by ("" for none); "open" opens the database for every page instead of keeping the
/// connection. The pages go to standard output.
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "component/db_view.h"
#include "connection_string.h"
#include "database/objects.h"
#include "dralo/page.h"
#include "hosts/cpp/environment.h"

namespace {

using dralo::Page;
using dralo::host::Environment;

void RenderPage(Environment& environment, const std::string& connection_string,
                const std::string& query_string, std::string_view sort) {
  Page page("/orders", query_string);
  page.send = [](const Page&, std::string_view piece) {
    if (write(STDOUT_FILENO, piece.data(), piece.size()) < 0) std::exit(3);
  };
  dralo::component::DbView view(environment);
  view.OnStartPage(page);
  view.Set("ConnectionString", connection_string);
  view.Set("sql", std::string("SELECT * FROM orders"));
  if (!sort.empty()) view.Set("OrderByFields", std::string(sort));
  view.WriteHtmlTable();
  view.OnEndPage();
  if (!view.GetSettings().ErrorMessage.empty()) {
    std::cerr << view.GetSettings().ErrorMessage << '\n';
    std::exit(1);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::cerr << "usage: bench_grid_page DATABASE FIRST PAGES [SORT] [open]\n";
    return 2;
  }
  const std::string connection_string = ConnectionStringOf(argv[1]);
  const std::string query_string = "Morvu1CurrRecord=" + std::to_string(std::atol(argv[2]) + 1);
  const std::string_view sort = argc > 4 ? argv[4] : "";
  const bool open_per_page = argc > 5 && std::string_view(argv[5]) == "open";
  Environment environment("en-US");
  for (long pages = std::atol(argv[3]); pages > 0; --pages) {
    RenderPage(environment, connection_string, query_string, sort);
    if (open_per_page) dralo::database::CloseIdleConnections();
  }
  return 0;
}
