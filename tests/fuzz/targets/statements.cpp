#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "database/postgresql/placeholders.h"
#include "database/select_list.h"
#include "database/select_shape.h"
#include "database/statement_kind.h"
#include "database/statement_text.h"
#include "editing/derived_table.h"
#include "editing/query_schema.h"
#include "fuzz/fuzz_input.h"
#include "text/sql_piece.h"

namespace dralo::fuzz {
namespace {

struct Closing {
  void operator()(sqlite3* connection) const { sqlite3_close(connection); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Connection = std::unique_ptr<sqlite3, Closing>;
using Statement = std::unique_ptr<sqlite3_stmt, Closing>;

sqlite3* Database() {
  static const Connection connection = [] {
    sqlite3* opened = nullptr;
    sqlite3_open(":memory:", &opened);
    sqlite3_exec(opened, "CREATE TABLE T(a, b, c); CREATE TABLE U(a, d)", nullptr, nullptr, nullptr);
    return Connection(opened);
  }();
  return connection.get();
}

Statement Prepared(std::string_view text) {
  sqlite3_stmt* prepared = nullptr;
  sqlite3_prepare_v2(Database(), text.data(), static_cast<int>(text.size()), &prepared, nullptr);
  return Statement(prepared);
}

/// SQLite knows which statements change nothing.
void CompareWithSqlite(std::string_view text) {
  const Statement prepared = Prepared(text);
  if (prepared == nullptr) return;
  const database::StatementKind kind = database::KindOf(text);
  const bool only_reads = sqlite3_stmt_readonly(prepared.get()) != 0;
  Require(!kind.is_select || only_reads, "what is taken for a select only reads");
  Require(!kind.is_query || kind.leaves_traces || only_reads, "what is taken for a query only reads");
}

void TryPieces(std::string_view text) {
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::string_view piece = text::FirstSqlPiece(rest);
    Require(!piece.empty() && piece.data() == rest.data() && piece.size() <= rest.size(),
            "a piece is the start of the statement");
    rest.remove_prefix(piece.size());
  }
  // Databases differ in what these begin, and in whether comments stand in each other.
  const bool is_disputed = text.find_first_of("$\\`") != text.npos || text.find("/*") != text.npos;
  if (is_disputed) return;
  const std::size_t parameters = text::CountSqlParameters(text);
  Require(static_cast<std::size_t>(database::postgresql::NumberParameters(text).parameters) == parameters,
          "as many parameters are numbered as there are");
}

}  // namespace

void Try(std::string_view input) {
  TryPieces(input);
  CompareWithSqlite(input);
  static_cast<void>(database::GivenNames(input));
  static_cast<void>(database::NamesTwice(input, "T"));
  static_cast<void>(database::ShapeOf(input));
  Require(input.ends_with(database::FromFirstWord(input)), "the first word begins an end of the text");
  Require(input.starts_with(editing::WithoutWhere(input)), "a statement without its end is a start of it");
  Require(input.find(database::WithoutEnd(database::WithoutFront(input, '('))) != input.npos,
          "a statement without its ends is a part of it");
  const std::vector<platform::Variant> none;
  const std::string table = editing::DerivedTable(input, none).text;
  Require(table.starts_with("("), "a derived table stands in brackets");
}

}  // namespace dralo::fuzz
