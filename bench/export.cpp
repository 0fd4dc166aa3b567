/// Downloads the whole table "orders" as a spreadsheet, as a visitor would who presses the button:
///
///   bench_export DATABASE [hardened]
///
/// DATABASE is a file of SQLite or a connection string. The file goes to standard output; to the other output
/// goes the highest memory before and after, in KiB.
#include <dralo/dralo.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

#include "connection_string.h"

namespace {

/// The highest resident memory of this process so far. What wait4() tells includes the parent's.
std::string HighestMemory() {
  std::ifstream status("/proc/self/status");
  std::string word;
  while (status >> word && word != "VmHWM:") continue;
  status >> word;
  return word;
}

}  // namespace

int main(int argc, char** argv) {
  const bool is_hardened = argc == 3 && std::string_view(argv[2]) == "hardened";
  if (argc != 2 && !is_hardened) {
    std::cerr << "usage: bench_export DATABASE [hardened]\n";
    return 2;
  }
  using dralo::Page;
  dralo::Environment environment("en-US");
  Page page("/orders", "Morvu1ToExcel.x=1");
  page.send = [](const Page&, std::string_view piece) {
    if (write(STDOUT_FILENO, piece.data(), piece.size()) < 0) std::exit(3);
  };
  dralo::DbView view(environment);
  view.SetHardened(is_hardened);
  view.OnStartPage(page);
  view.SetConnectionString(ConnectionStringOf(argv[1]));
  view.SetSql("SELECT * FROM orders");
  const std::string before = HighestMemory();
  try {
    view.WriteHtmlTable();
  } catch (const Page::Ended&) {
    std::cerr << before << ' ' << HighestMemory() << '\n';
    return 0;
  }
  std::cerr << view.ErrorMessage() << '\n';
  return 1;
}
