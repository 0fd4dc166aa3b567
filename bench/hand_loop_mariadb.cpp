/// The measure over MariaDB: what a programmer would write by hand with its client library. The rows are the
/// bytes that bench_grid_page and bench_export write.
///
///   bench_hand_loop_mariadb PORT USER PASSWORD DATABASE FIRST PAGES [SORT]
///   bench_hand_loop_mariadb PORT USER PASSWORD DATABASE export
///
/// The other arguments are those of bench_hand_loop. A page is two statements that are prepared once for all
/// pages, the count and SELECT with LIMIT and OFFSET, whose values come in the types of their columns. The
/// export is one prepared SELECT whose rows are fetched one by one, so that it takes the same little memory
/// for any number of rows.
#include <mysql.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "hand_table.h"

namespace hand {

namespace {

/// Room for the longest text of the table.
constexpr std::size_t kRoom = 512;

enum_field_types TypeOf(int column) {
  constexpr std::array kTypes = {MYSQL_TYPE_LONGLONG, MYSQL_TYPE_LONGLONG, MYSQL_TYPE_STRING,
                                 MYSQL_TYPE_STRING,   MYSQL_TYPE_STRING,   MYSQL_TYPE_LONGLONG,
                                 MYSQL_TYPE_STRING,   MYSQL_TYPE_DOUBLE,   MYSQL_TYPE_BLOB,
                                 MYSQL_TYPE_DATETIME, MYSQL_TYPE_DATETIME, MYSQL_TYPE_STRING};
  static_assert(kTypes.size() == kColumns);
  return kTypes[static_cast<std::size_t>(column)];
}

struct Value {
  char bytes[kRoom];
  unsigned long size;
  my_bool is_null;
};

/// Without trailing zeros.
void PutDecimal(std::string_view text) {
  if (text.find('.') != text.npos) text = text.substr(0, text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.remove_suffix(1);
  Put(text);
}

void PutDouble(double number) {
  std::array<char, 32> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr;
  Put({text.data(), static_cast<std::size_t>(end - text.data())});
}

void PutTwoDigits(unsigned number) {
  const char digits[] = {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
  Put({digits, sizeof digits});
}

void PutTime(const MYSQL_TIME& time) {
  PutInteger(time.month);
  Put("/");
  PutInteger(time.day);
  Put("/");
  PutInteger(time.year);
  if (time.hour == 0 && time.minute == 0 && time.second == 0) return;
  Put(" ");
  PutInteger(time.hour % 12 == 0 ? 12 : time.hour % 12);
  Put(":");
  PutTwoDigits(time.minute);
  Put(":");
  PutTwoDigits(time.second);
  Put(time.hour < 12 ? " AM" : " PM");
}

template <class T>
const T& As(const Value& value) {
  return *reinterpret_cast<const T*>(value.bytes);
}

void PutValue(const Value& value, int column) {
  if (value.is_null != 0) return Put("&nbsp;");
  const std::string_view text(value.bytes, value.size);
  if (kKinds[column] == kFlag) return Put(text[0] != 0 ? "True" : "False");
  if (kKinds[column] == kDate) return PutTime(As<MYSQL_TIME>(value));
  if (kKinds[column] != kNumber) return Put(text.empty() ? "&nbsp;" : text);
  if (TypeOf(column) == MYSQL_TYPE_LONGLONG) return PutInteger(As<std::int64_t>(value));
  if (TypeOf(column) == MYSQL_TYPE_DOUBLE) return PutDouble(As<double>(value));
  PutDecimal(text);
}

[[noreturn]] void Fail(const char* message) {
  std::cerr << message << '\n';
  std::exit(1);
}

/// A prepared statement, with at most one parameter, and its current row.
class Statement {
 public:
  Statement(MYSQL* connection, const std::string& text, int columns) : handle_(mysql_stmt_init(connection)) {
    Require(mysql_stmt_prepare(handle_, text.data(), text.size()) == 0);
    fields_ = mysql_stmt_result_metadata(handle_);
    for (int i = 0; i < columns; ++i) {
      Value& value = values_[i];
      MYSQL_BIND& bind = binds_[i];
      bind.buffer_type = columns == 1 ? MYSQL_TYPE_LONGLONG : TypeOf(i);
      bind.buffer = value.bytes;
      bind.buffer_length = kRoom;
      bind.length = &value.size;
      bind.is_null = &value.is_null;
    }
  }
  ~Statement() {
    mysql_free_result(fields_);
    mysql_stmt_close(handle_);
  }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  void Run(std::int64_t parameter = 0) {
    MYSQL_BIND bind{};
    bind.buffer_type = MYSQL_TYPE_LONGLONG;
    bind.buffer = &parameter;
    if (mysql_stmt_param_count(handle_) > 0) Require(mysql_stmt_bind_param(handle_, &bind) == 0);
    Require(mysql_stmt_execute(handle_) == 0);
    Require(mysql_stmt_bind_result(handle_, binds_.data()) == 0);
  }

  bool Step() {
    const int answer = mysql_stmt_fetch(handle_);
    Require(answer == 0 || answer == MYSQL_NO_DATA);
    return answer == 0;
  }

  void End() { mysql_stmt_free_result(handle_); }

  const Value& At(int column) const { return values_[static_cast<std::size_t>(column)]; }
  const char* Name(int column) const {
    return mysql_fetch_field_direct(fields_, static_cast<unsigned>(column))->name;
  }

 private:
  void Require(bool is_good) {
    if (!is_good) Fail(mysql_stmt_error(handle_));
  }

  MYSQL_STMT* handle_;
  MYSQL_RES* fields_ = nullptr;
  std::array<Value, kColumns> values_{};
  std::array<MYSQL_BIND, kColumns> binds_{};
};

void PutPages(MYSQL* connection, const std::string& sql, long first, long pages) {
  Statement count(connection, "SELECT COUNT(*) FROM orders", 1);
  Statement page(connection, sql + " LIMIT 20 OFFSET ?", kColumns);
  for (; pages > 0; --pages) {
    count.Run();
    count.Step();
    const auto total = As<std::int64_t>(count.At(0));
    count.End();
    page.Run(first);
    PutPageHead([&](int column) { return page.Name(column); });
    for (int row = 1; page.Step(); ++row) {
      PutRow(row, first + row, [&](int column) { PutValue(page.At(column), column); });
    }
    page.End();
    PutPageEnd(first, total);
  }
}

void PutExport(MYSQL* connection) {
  Statement all(connection, "SELECT * FROM orders", kColumns);
  all.Run();
  PutExportHead([&](int column) { return all.Name(column); });
  while (all.Step()) PutExportRow([&](int column) { PutValue(all.At(column), column); });
  PutExportEnd();
}

}  // namespace

}  // namespace hand

int main(int argc, char** argv) {
  const auto argument = [&](int number) { return std::string_view(argc > number ? argv[number] : ""); };
  if (argc < 6 || (argc == 6 && argument(5) != "export")) {
    std::cerr << "usage: bench_hand_loop_mariadb PORT USER PASSWORD DATABASE FIRST PAGES [SORT]\n"
                 "       bench_hand_loop_mariadb PORT USER PASSWORD DATABASE export\n";
    return 2;
  }
  MYSQL* const connection = mysql_init(nullptr);
  mysql_options(connection, MYSQL_SET_CHARSET_NAME, "utf8mb4");
  const auto port = static_cast<unsigned>(std::atol(argv[1]));
  if (mysql_real_connect(connection, "127.0.0.1", argv[2], argv[3], argv[4], port, nullptr, 0) == nullptr) {
    hand::Fail(mysql_error(connection));
  }
  if (argument(5) == "export") {
    hand::PutExport(connection);
  } else {
    std::string sql = "SELECT * FROM orders";
    if (!argument(7).empty()) sql.append(" ORDER BY ").append(argument(7));
    hand::PutPages(connection, sql, std::atol(argv[5]), std::atol(argv[6]));
  }
  mysql_close(connection);
  return 0;
}
