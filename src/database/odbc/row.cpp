#include "database/odbc/row.h"

#include <sqlext.h>

#include <algorithm>

namespace dralo::database::odbc {

namespace {

/// Most values are not longer.
constexpr std::size_t kFirstBytes = 1024;

}  // namespace

Row::Row(const Link& link, SQLHSTMT statement, const std::vector<Reading>& readings)
    : link_(link), statement_(statement) {
  for (const Reading reading : readings) cells_.push_back({reading, std::vector<char>(kFirstBytes)});
}

bool Row::Fetch(std::string_view text) {
  const SQLRETURN code = SQLFetch(statement_);
  if (code == SQL_NO_DATA) return false;
  link_.Require(code, statement_, text);
  SQLUSMALLINT number = 0;
  for (Cell& cell : cells_) Read(++number, cell, text);
  return true;
}

/// After each piece the driver says how much there was before it, or that it does not know. Some drivers do
/// not say it for values of a fixed size.
void Row::Read(SQLUSMALLINT number, Cell& cell, std::string_view text) const {
  const std::size_t terminator = TerminatorBytes(cell.reading);
  const std::size_t fixed = FixedBytes(cell.reading);
  cell.size = 0;
  for (;;) {
    const std::size_t room = cell.room.size() - cell.size;
    SQLLEN left = 0;
    const SQLRETURN code = SQLGetData(statement_, number, CTypeOf(cell.reading), cell.room.data() + cell.size,
                                      static_cast<SQLLEN>(room), &left);
    if (code == SQL_NO_DATA) return;
    link_.Require(code, statement_, text);
    cell.is_null = left == SQL_NULL_DATA;
    if (cell.is_null) return;
    if (fixed > 0) {
      cell.size = fixed;
      return;
    }
    const std::size_t put = room - terminator;
    if (left != SQL_NO_TOTAL && static_cast<std::size_t>(left) <= put) {
      cell.size += static_cast<std::size_t>(left);
      return;
    }
    cell.size += put;
    const std::size_t rest = left == SQL_NO_TOTAL ? cell.size : static_cast<std::size_t>(left) - put;
    // An even number of bytes, so that units of two bytes are not cut in the middle.
    cell.room.resize((cell.size + rest + terminator + 1) / 2 * 2);
  }
}

platform::VariantView Row::Value(std::size_t column) {
  Cell& cell = cells_[column];
  if (cell.is_null) return {};
  return ReadValue(cell.reading, {cell.room.data(), cell.size}, cell.scratch);
}

}  // namespace dralo::database::odbc
