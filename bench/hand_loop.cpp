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
#include <unistd.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <string_view>

namespace {

constexpr int kColumns = 12;
constexpr int kRows = 20;
enum ColumnKind { kNumber, kText, kFlag, kDate, kMemo };
constexpr ColumnKind kKinds[kColumns] = {kNumber, kNumber, kText, kText, kText, kNumber,
                                         kNumber, kNumber, kFlag, kDate, kDate, kMemo};

char buffer[1 << 18];
std::size_t used = 0;

void Flush() {
  if (write(STDOUT_FILENO, buffer, used) < 0) std::exit(3);
  used = 0;
}

void Put(std::string_view text) {
  if (used + text.size() > sizeof buffer) Flush();
  std::memcpy(buffer + used, text.data(), text.size());
  used += text.size();
}

void PutInteger(std::int64_t number) {
  char digits[24];
  Put({digits, static_cast<std::size_t>(std::to_chars(digits, digits + sizeof digits, number).ptr - digits)});
}

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

int Two(const char* digits) { return (digits[0] - '0') * 10 + (digits[1] - '0'); }

/// "YYYY-MM-DD[ HH:MM:SS]" as M/D/YYYY and, unless it is midnight, the time of a twelve-hour clock.
void PutDate(std::string_view iso) {
  PutInteger(Two(iso.data() + 5));
  Put("/");
  PutInteger(Two(iso.data() + 8));
  Put("/");
  Put(iso.substr(0, 4));
  if (iso.size() < 19 || iso.substr(11) == "00:00:00") return;
  const int hour = Two(iso.data() + 11);
  Put(" ");
  PutInteger(hour % 12 == 0 ? 12 : hour % 12);
  Put(iso.substr(13, 6));
  Put(hour < 12 ? " AM" : " PM");
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

void PutRow(sqlite3_stmt* query, int row, long record) {
  const std::string_view parity = row % 2 == 1 ? "odd" : "even";
  Put("<tr id=\"drl1row_");
  PutInteger(row);
  Put("\"class=\"DRLOTableTR");
  Put(parity);
  Put("\">\r\n<td id=\"drl1cell_");
  PutInteger(row);
  Put("_0\"class=\"DRLOTableTD");
  Put(parity);
  Put("\"><a class=\"DRLOTable\" href=\"/orders?Morvu1FormDisplay=formOneRec&Morvu1BookMark=");
  PutInteger(record);
  Put("&Morvu1OrderByFields=&Morvu1CurrRecord=");
  PutInteger(record);
  Put("&Morvu1CountRecords=on&Morvu1maxrecords=20\">");
  PutInteger(record);
  Put("</a></td>\r\n");
  for (int column = 0; column < kColumns; ++column) {
    Put("<td id=\"drl1cell_");
    PutInteger(row);
    Put("_");
    PutInteger(column + 1);
    Put("\"class=\"DRLOTableTD");
    Put(parity);
    const bool is_right = kKinds[column] == kNumber || kKinds[column] == kFlag;
    Put(is_right ? std::string_view("\" align=\"right\">") : std::string_view("\">"));
    PutValue(query, column);
    Put("</td>\r\n");
  }
  Put("</tr>\r\n");
}

void PutPage(sqlite3_stmt* query, sqlite3_stmt* count, long first) {
  sqlite3_step(count);
  const std::int64_t total = sqlite3_column_int64(count, 0);
  sqlite3_reset(count);
  Put("<table><tr>");
  for (int column = 0; column < kColumns; ++column) {
    Put("<th><a href=\"?sort=");
    PutInteger(column + 1);
    Put("\">");
    Put(sqlite3_column_name(query, column));
    Put("</a></th>");
  }
  Put("</tr>\n");
  for (long skipped = 0; skipped < first && sqlite3_step(query) == SQLITE_ROW; ++skipped) continue;
  for (int row = 1; row <= kRows && sqlite3_step(query) == SQLITE_ROW; ++row) PutRow(query, row, first + row);
  sqlite3_reset(query);
  Put("</table><p>");
  for (const long target : {0L, first - kRows, first + kRows, static_cast<long>(total) - kRows}) {
    Put("<a href=\"?first=");
    PutInteger(target);
    Put("\">go</a> ");
  }
  PutInteger(first + 1);
  Put(" of ");
  PutInteger(total);
  Put("</p>\n");
  Flush();
}

/// The bytes of the spreadsheet, with the heads of cells as constants.
void PutExport(sqlite3_stmt* query) {
  Put("<table>\r\n<tr>\r\n");
  for (int column = 0; column < kColumns; ++column) {
    Put("<th style=\"border:thin silver solid\"  >");
    Put(sqlite3_column_name(query, column));
    Put("</th>\r\n");
  }
  Put("</tr>\r\n");
  while (sqlite3_step(query) == SQLITE_ROW) {
    Put("<tr>\r\n");
    for (int column = 0; column < kColumns; ++column) {
      const bool is_right = kKinds[column] == kNumber || kKinds[column] == kFlag;
      Put(is_right ? std::string_view("<td style=\"border:thin silver solid\"    align=\"right\" >")
                   : std::string_view("<td style=\"border:thin silver solid\"    >"));
      PutValue(query, column);
      Put("</td>\r\n");
    }
    Put("</tr>\r\n");
  }
  Put("</table>");
  Flush();
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

int main(int argc, char** argv) {
  if (argc == 3 && std::string_view(argv[2]) == "export") {
    PutExport(Database(argv[1], "SELECT * FROM orders").query);
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
    const Database database(argv[1], sql);
    do PutPage(database.query, database.count, first);
    while (--pages > 0 && !open_per_page);
  }
  return 0;
}
