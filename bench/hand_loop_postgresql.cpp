/// The measure over PostgreSQL: what a programmer would write by hand with its client library. The rows are
/// the bytes that bench_grid_page and bench_export write; values come as text and mostly go as they are.
///
///   bench_hand_loop_postgresql DATABASE FIRST PAGES [SORT] [prepared | pipelined | keyed | reading]
///   bench_hand_loop_postgresql DATABASE export [single]
///
/// DATABASE is a connection string of libpq; the other arguments are those of bench_hand_loop. A page is two
/// statements, the count and SELECT with LIMIT and OFFSET; with "prepared" they are prepared once for all
/// pages; with "pipelined" both are sent in one trip as well; with "keyed" the key stands behind the sort
/// column, which gives equal values one order too; with "reading" the second is a cursor instead that passes
/// over the records before the page, as a page needs whose sort column has equal values. The export reads
/// 1,000 rows at a time from a cursor; with "single" it is one SELECT whose rows come one by one. Both take
/// the same little memory for any number of rows.
#include <libpq-fe.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

#include "hand_table.h"

namespace hand {

namespace {

using Result = std::unique_ptr<PGresult, decltype(&PQclear)>;

std::string_view TextOf(const PGresult* rows, int row, int column) {
  return {PQgetvalue(rows, row, column), static_cast<std::size_t>(PQgetlength(rows, row, column))};
}

/// Without trailing zeros.
void PutNumber(std::string_view text) {
  const bool has_decimals = text.find('.') != text.npos;
  if (has_decimals) text = text.substr(0, text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.remove_suffix(1);
  Put(text);
}

void PutValue(const PGresult* rows, int row, int column) {
  const std::string_view text = TextOf(rows, row, column);
  if (text.empty()) return Put("&nbsp;");
  if (kKinds[column] == kNumber) return PutNumber(text);
  if (kKinds[column] == kFlag) return Put(text == "t" ? "True" : "False");
  if (kKinds[column] == kDate) return PutDate(text);
  Put(text);
}

class Database {
 public:
  explicit Database(const char* connection_string) : connection_(PQconnectdb(connection_string)) {
    if (PQstatus(connection_) != CONNECTION_OK) Fail();
  }
  ~Database() { PQfinish(connection_); }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  PGconn* Connection() { return connection_; }

  Result Run(const std::string& text) { return Good(PQexec(connection_, text.c_str())); }

  void Prepare(const char* name, const std::string& text) {
    Good(PQprepare(connection_, name, text.c_str(), 0, nullptr));
  }

  /// `text` is the only parameter, or nullptr.
  Result RunPrepared(const char* name, const char* text = nullptr) {
    const int parameters = text == nullptr ? 0 : 1;
    return Good(PQexecPrepared(connection_, name, parameters, &text, nullptr, nullptr, 0));
  }

  Result Good(PGresult* result) {
    const auto status = PQresultStatus(result);
    if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK && status != PGRES_SINGLE_TUPLE) Fail();
    return {result, &PQclear};
  }

 private:
  [[noreturn]] void Fail() {
    std::cerr << PQerrorMessage(connection_);
    std::exit(1);
  }

  PGconn* connection_;
};

void PutPage(const PGresult* rows, long first, std::int64_t total) {
  PutPageHead([&](int column) { return PQfname(rows, column); });
  for (int row = 0; row < PQntuples(rows); ++row) {
    PutRow(row + 1, first + row + 1, [&](int column) { PutValue(rows, row, column); });
  }
  PutPageEnd(first, total);
}

std::int64_t NumberIn(const Result& result) { return std::atoll(PQgetvalue(result.get(), 0, 0)); }

constexpr const char* kCount = "SELECT COUNT(*) FROM orders";

void PutPages(Database& database, const std::string& sql, long first, long pages) {
  const std::string page = sql + " LIMIT 20 OFFSET " + std::to_string(first);
  for (; pages > 0; --pages) {
    const std::int64_t total = NumberIn(database.Run(kCount));
    PutPage(database.Run(page).get(), first, total);
  }
}

void PutPagesPrepared(Database& database, const std::string& sql, long first, long pages) {
  const std::string offset = std::to_string(first);
  database.Prepare("count", kCount);
  database.Prepare("page", sql + " LIMIT 20 OFFSET $1");
  for (; pages > 0; --pages) {
    const std::int64_t total = NumberIn(database.RunPrepared("count"));
    PutPage(database.RunPrepared("page", offset.c_str()).get(), first, total);
  }
}

/// In their turn; behind each stands a mark of its end.
Result NextOfPipeline(Database& database) {
  Result result = database.Good(PQgetResult(database.Connection()));
  PQclear(PQgetResult(database.Connection()));
  return result;
}

void PutPagesPipelined(Database& database, const std::string& sql, long first, long pages) {
  const std::string offset = std::to_string(first);
  const char* const parameter = offset.c_str();
  database.Prepare("count", kCount);
  database.Prepare("page", sql + " LIMIT 20 OFFSET $1");
  PGconn* const connection = database.Connection();
  PQenterPipelineMode(connection);
  for (; pages > 0; --pages) {
    PQsendQueryPrepared(connection, "count", 0, nullptr, nullptr, nullptr, 0);
    PQsendQueryPrepared(connection, "page", 1, &parameter, nullptr, nullptr, 0);
    PQpipelineSync(connection);
    const std::int64_t total = NumberIn(NextOfPipeline(database));
    const Result page = NextOfPipeline(database);
    PQclear(PQgetResult(connection));
    PutPage(page.get(), first, total);
  }
}

void PutPagesReading(Database& database, const std::string& sql, long first, long pages) {
  const std::string text = "BEGIN;DECLARE page NO SCROLL CURSOR FOR " + sql + ";MOVE " +
                           std::to_string(first) + " FROM page;FETCH 20 FROM page";
  for (; pages > 0; --pages) {
    const std::int64_t total = NumberIn(database.Run(kCount));
    PutPage(database.Run(text).get(), first, total);
    database.Run("COMMIT");
  }
}

void PutExportRows(const PGresult* rows) {
  for (int row = 0; row < PQntuples(rows); ++row) {
    PutExportRow([&](int column) { PutValue(rows, row, column); });
  }
}

void PutExport(Database& database) {
  database.Run("BEGIN;DECLARE export NO SCROLL CURSOR FOR SELECT * FROM orders");
  Result rows = database.Run("FETCH 1000 FROM export");
  PutExportHead([&](int column) { return PQfname(rows.get(), column); });
  while (PQntuples(rows.get()) > 0) {
    PutExportRows(rows.get());
    rows = database.Run("FETCH 1000 FROM export");
  }
  database.Run("COMMIT");
  PutExportEnd();
}

void PutExportSingly(Database& database) {
  PGconn* const connection = database.Connection();
  PQsendQuery(connection, "SELECT * FROM orders");
  PQsetSingleRowMode(connection);
  bool has_head = false;
  while (PGresult* const next = PQgetResult(connection)) {
    const Result rows = database.Good(next);
    if (!has_head) PutExportHead([&](int column) { return PQfname(next, column); });
    has_head = true;
    PutExportRows(next);
  }
  PutExportEnd();
}

}  // namespace

}  // namespace hand

int main(int argc, char** argv) {
  const auto argument = [&](int number) { return std::string_view(argc > number ? argv[number] : ""); };
  if (argc < 3 || (argc == 3 && argument(2) != "export")) {
    std::cerr << "usage: bench_hand_loop_postgresql DATABASE FIRST PAGES [SORT] [prepared | pipelined | "
                 "keyed | reading]\n"
                 "       bench_hand_loop_postgresql DATABASE export [single]\n";
    return 2;
  }
  hand::Database database(argv[1]);
  if (argument(2) == "export") {
    argument(3) == "single" ? hand::PutExportSingly(database) : hand::PutExport(database);
    return 0;
  }
  std::string sql = "SELECT * FROM orders";
  const bool is_keyed = argument(5) == "keyed";
  if (!argument(4).empty()) sql.append(" ORDER BY ").append(argument(4)).append(is_keyed ? ", id" : "");
  if (argument(4).empty() && is_keyed) sql.append(" ORDER BY id");
  const auto put_pages = argument(5) == "prepared" || is_keyed ? hand::PutPagesPrepared
                         : argument(5) == "pipelined"          ? hand::PutPagesPipelined
                         : argument(5) == "reading"            ? hand::PutPagesReading
                                                               : hand::PutPages;
  put_pages(database, sql, std::atol(argv[2]), std::atol(argv[3]));
  return 0;
}
