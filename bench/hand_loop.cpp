/// The measure: what a programmer would write by hand for one fixed page, without a component. Prepared
/// statements on one open database, one buffer, own number and date writing; the rows are the bytes that
/// bench_grid_page writes, around them stands less: a plain header and four paging links.
///
///   bench_hand_loop DATABASE FIRST PAGES [SORT] [open]
///   bench_hand_loop DATABASE export
///
/// Arguments as for bench_grid_page. It steps over the records before the page. With "export" it writes, byte
/// for byte, what bench_export writes.
#include <sqlite3.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "hand_table.h"

namespace hand {

namespace {

/// Values of up to four decimals, as all of the table are, without trailing zeros.
void PutDouble(double number) {
  const auto scaled = static_cast<std::int64_t>(std::nearbyint(number * 1e4));
  PutInteger(scaled / 10000);
  auto fraction = scaled % 10000;
  if (fraction == 0) return;
  char digits[5] = {'.'};
  for (int at = 4; at > 0; --at, fraction /= 10) digits[at] = static_cast<char>('0' + fraction % 10);
  std::string_view text(digits, sizeof digits);
  Put(text.substr(0, text.find_last_not_of('0') + 1));
}

std::string_view ColumnText(sqlite3_stmt* query, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(query, column));
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(query, column))};
}

void PutValue(sqlite3_stmt* query, int column) {
  const int type = sqlite3_column_type(query, column);
  if (type == SQLITE_NULL) return Put("&nbsp;");
  if (type == SQLITE_FLOAT) return PutDouble(sqlite3_column_double(query, column));
  if (type == SQLITE_INTEGER && kKinds[column] == kFlag) {
    return Put(sqlite3_column_int(query, column) != 0 ? "True" : "False");
  }
  if (type == SQLITE_INTEGER) return PutInteger(sqlite3_column_int64(query, column));
  const std::string_view text = ColumnText(query, column);
  if (kKinds[column] == kDate) return PutDate(text);
  Put(text.empty() ? "&nbsp;" : text);
}

void PutPage(sqlite3_stmt* query, sqlite3_stmt* count, long first) {
  sqlite3_step(count);
  const std::int64_t total = sqlite3_column_int64(count, 0);
  sqlite3_reset(count);
  PutPageHead([&](int column) { return sqlite3_column_name(query, column); });
  for (long skipped = 0; skipped < first && sqlite3_step(query) == SQLITE_ROW; ++skipped) continue;
  for (int row = 1; row <= kRows && sqlite3_step(query) == SQLITE_ROW; ++row) {
    PutRow(row, first + row, [&](int column) { PutValue(query, column); });
  }
  sqlite3_reset(query);
  PutPageEnd(first, total);
}

void PutExport(sqlite3_stmt* query) {
  PutExportHead([&](int column) { return sqlite3_column_name(query, column); });
  while (sqlite3_step(query) == SQLITE_ROW) PutExportRow([&](int column) { PutValue(query, column); });
  PutExportEnd();
}

struct Database {
  sqlite3* handle = nullptr;
  sqlite3_stmt* query = nullptr;
  sqlite3_stmt* count = nullptr;

  Database(const char* path, const std::string& sql) {
    if (sqlite3_open_v2(path, &handle, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK ||
        sqlite3_prepare_v2(handle, sql.c_str(), -1, &query, nullptr) != SQLITE_OK ||
        sqlite3_prepare_v2(handle, "SELECT COUNT(*) FROM orders", -1, &count, nullptr) != SQLITE_OK) {
      std::cerr << sqlite3_errmsg(handle) << '\n';
      std::exit(1);
    }
  }
  ~Database() {
    sqlite3_finalize(query);
    sqlite3_finalize(count);
    sqlite3_close(handle);
  }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
};

}  // namespace

}  // namespace hand

int main(int argc, char** argv) {
  if (argc == 3 && std::string_view(argv[2]) == "export") {
    hand::PutExport(hand::Database(argv[1], "SELECT * FROM orders").query);
    return 0;
  }
  if (argc < 4) {
    std::cerr << "usage: bench_hand_loop DATABASE FIRST PAGES [SORT] [open]\n"
                 "       bench_hand_loop DATABASE export\n";
    return 2;
  }
  const long first = std::atol(argv[2]);
  std::string sql = "SELECT * FROM orders";
  if (argc > 4 && *argv[4] != '\0') sql.append(" ORDER BY ").append(argv[4]);
  const bool open_per_page = argc > 5 && std::string_view(argv[5]) == "open";
  long pages = std::atol(argv[3]);
  while (pages > 0) {
    const hand::Database database(argv[1], sql);
    do hand::PutPage(database.query, database.count, first);
    while (--pages > 0 && !open_per_page);
  }
  return 0;
}
