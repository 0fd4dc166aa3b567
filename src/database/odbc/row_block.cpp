#include "database/odbc/row_block.h"

#include <sqlext.h>

#include <algorithm>
#include <utility>

#include "dralo/error.h"

namespace dralo::database::odbc {

namespace {

constexpr std::size_t kMaxRows = 1000;
constexpr std::size_t kMaxBlockBytes = 1'048'576;
constexpr std::size_t kFirstPieceBytes = 4096;

constexpr std::size_t Aligned(std::size_t bytes) { return (bytes + 7) / 8 * 8; }

}  // namespace

RowBlock::RowBlock(const Link& link, SQLHSTMT statement, const std::vector<Reader>& readers,
                   std::int64_t max_rows)
    : link_(link), statement_(statement) {
  std::size_t row_bytes = 0;
  bool has_unbounded = false;
  for (const Reader& reader : readers) {
    row_bytes += Aligned(reader.cell_bytes);
    has_unbounded |= !reader.is_bounded;
    bindings_.push_back({.reader = reader});
  }
  if (!has_unbounded || link_.ReadsCellsOfBlocks()) {
    rows_ = std::clamp<std::size_t>(kMaxBlockBytes / std::max<std::size_t>(row_bytes, 1), 1, kMaxRows);
    if (max_rows > 0)
      rows_ = std::min(rows_, static_cast<std::size_t>(std::min<std::int64_t>(max_rows, kMaxRows)));
  }
  memory_ = std::make_unique_for_overwrite<char[]>(row_bytes * rows_);
  indicators_ = std::make_unique_for_overwrite<SQLLEN[]>(bindings_.size() * rows_);
  Bind();
}

RowBlock::~RowBlock() {
  SQLFreeStmt(statement_, SQL_UNBIND);
  SQLSetStmtAttr(statement_, SQL_ATTR_ROWS_FETCHED_PTR, nullptr, 0);
}

/// A driver that cannot read single values of a block, or only in the order of the columns, gets no room for
/// a column behind one of unknown length: it could not be read any more.
void RowBlock::Bind() {
  SQLSetStmtAttr(statement_, SQL_ATTR_ROW_ARRAY_SIZE, AsPointer(rows_), 0);
  SQLSetStmtAttr(statement_, SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0);
  char* cells = memory_.get();
  SQLLEN* indicators = indicators_.get();
  bool may_bind = true;
  for (std::size_t i = 0; i < bindings_.size(); ++i) {
    Binding& binding = bindings_[i];
    const Reader& reader = binding.reader;
    if (!reader.is_bounded && !link_.ReadsCellsOfBlocks()) {
      may_bind = may_bind && link_.ReadsCellsInAnyOrder();
      continue;
    }
    if (reader.cell_bytes == 0 || !may_bind) continue;
    const SQLRETURN code = SQLBindCol(statement_, static_cast<SQLUSMALLINT>(i + 1), CTypeOf(reader.reading),
                                      cells, static_cast<SQLLEN>(reader.cell_bytes), indicators);
    if (!SQL_SUCCEEDED(code)) continue;
    binding.cells = cells;
    binding.indicators = indicators;
    cells += reader.cell_bytes * rows_;
    cells = memory_.get() + Aligned(static_cast<std::size_t>(cells - memory_.get()));
    indicators += rows_;
  }
}

std::size_t RowBlock::Fetch(std::string_view text) {
  text_ = text;
  fetched_ = 0;
  for (Binding& binding : bindings_) binding.long_row = 0;
  // Some drivers leave the indicator of a bit alone: that of an earlier null would make it one too.
  std::fill_n(indicators_.get(), bindings_.size() * rows_, SQLLEN{0});
  const SQLRETURN code = SQLFetch(statement_);
  if (code == SQL_NO_DATA) return 0;
  link_.Require(code, statement_, text);
  if (!link_.ReadsCellsInAnyOrder()) FetchCellsInOrder();
  return std::min(static_cast<std::size_t>(fetched_), rows_);
}

/// Of values of a fixed size some drivers do not tell it.
bool RowBlock::HasRoom(const Binding& binding, std::size_t row) {
  const std::size_t room = binding.reader.cell_bytes;
  const std::size_t terminator = TerminatorBytes(binding.reader.reading);
  if (terminator == 0) return true;
  const SQLLEN size = binding.indicators[row];
  return size >= 0 && static_cast<std::size_t>(size) + terminator <= room;
}

platform::VariantView RowBlock::Value(std::size_t row, std::size_t column) {
  return Value(row, column, bindings_[column].reader.reading);
}

platform::VariantView RowBlock::Stored(std::size_t row, std::size_t column) {
  const Reading reading = bindings_[column].reader.reading;
  const bool is_spelled = reading == Reading::kDateText || reading == Reading::kTimeText;
  return Value(row, column, is_spelled ? Reading::kText : reading);
}

platform::VariantView RowBlock::Value(std::size_t row, std::size_t column, Reading reading) {
  Binding& binding = bindings_[column];
  if (binding.cells) [[likely]] {
    const SQLLEN size = binding.indicators[row];
    if (size == SQL_NULL_DATA) return {};
    if (HasRoom(binding, row)) [[likely]] {
      const char* cell = binding.cells + row * binding.reader.cell_bytes;
      return Read(reading, {cell, static_cast<std::size_t>(size)}, binding.scratch);
    }
  }
  if (binding.long_row != row + 1) FetchCell(row, column);
  if (binding.is_long_null) return {};
  return Read(reading, binding.long_value, binding.scratch);
}

std::string_view RowBlock::Text(std::size_t row) {
  Binding& binding = bindings_.front();
  if (binding.cells && binding.indicators[row] == SQL_NULL_DATA) return {};
  if (binding.cells && HasRoom(binding, row)) {
    return {binding.cells + row * binding.reader.cell_bytes,
            static_cast<std::size_t>(binding.indicators[row])};
  }
  FetchCell(row, 0);
  return binding.long_value;
}

void RowBlock::FetchCell(std::size_t row, std::size_t column) {
  if (rows_ > 1) {
    if (!link_.ReadsCellsOfBlocks()) {
      throw platform::Error("A value is longer than the driver says that values of its column can be", 0, {},
                            std::string(text_));
    }
    link_.Require(SQLSetPos(statement_, row + 1, SQL_POSITION, SQL_LOCK_NO_CHANGE), statement_, text_);
  }
  ReadPieces(static_cast<SQLUSMALLINT>(column + 1), bindings_[column]);
  bindings_[column].long_row = row + 1;
}

void RowBlock::FetchCellsInOrder() {
  for (std::size_t i = 0; i < bindings_.size(); ++i) {
    if (!bindings_[i].cells) FetchCell(0, i);
  }
}

/// The driver says after each piece how much there was before it, or that it does not know.
void RowBlock::ReadPieces(SQLUSMALLINT number, Binding& binding) {
  std::string& value = binding.long_value;
  const std::size_t terminator = TerminatorBytes(binding.reader.reading);
  std::size_t done = 0;
  value.resize(std::max(value.capacity() / 2 * 2, kFirstPieceBytes));
  for (;;) {
    const std::size_t room = value.size() - done;
    SQLLEN left = SQL_NULL_DATA;
    const SQLRETURN code = SQLGetData(statement_, number, CTypeOf(binding.reader.reading),
                                      value.data() + done, static_cast<SQLLEN>(room), &left);
    if (code == SQL_NO_DATA) break;
    link_.Require(code, statement_, text_);
    binding.is_long_null = left == SQL_NULL_DATA;
    if (binding.is_long_null) break;
    const std::size_t put = room - terminator;
    if (left != SQL_NO_TOTAL && static_cast<std::size_t>(left) <= put) {
      done += static_cast<std::size_t>(left);
      break;
    }
    done += put;
    const std::size_t rest = left == SQL_NO_TOTAL ? done : static_cast<std::size_t>(left) - put;
    value.resize(done + Aligned(rest + terminator));
  }
  value.resize(done);
}

}  // namespace dralo::database::odbc
