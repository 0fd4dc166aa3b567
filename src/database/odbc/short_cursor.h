#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "database/cursor.h"
#include "database/odbc/handle.h"
#include "database/odbc/packed_row.h"
#include "database/odbc/row_block.h"
#include "database/odbc/session.h"
#include "database/odbc/statement_cache.h"
#include "database/query.h"

namespace dralo::database::odbc {

/// A query of PostgreSQL of which a few rows are wanted. They come at once, in one round trip. A query that
/// comes again is prepared: from then on the server need not plan it and the driver need not describe it.
///
/// The rows of all pages of a query come from the same plan, so that equal sort keys have the same order on
/// all of them.
class ShortCursor final : public database::Cursor {
 public:
  /// Nothing when the query is none that this class can run, or more rows may be wanted. A query that is
  /// known and calls no functions is run at the first Step(), or before a statement that may change what it
  /// yields. Throws platform::Error when it is accepted but fails.
  static std::unique_ptr<database::Cursor> Open(Session& session, const Query& query);

  ~ShortCursor() override;

  std::shared_ptr<const Columns> GetColumns() const override {
    return long_cursor_ ? long_cursor_->GetColumns() : known_->description.columns;
  }
  void FixColumns() override;
  platform::TypeCode Type(std::size_t column) const override { return (*GetColumns())[column].type; }
  bool ChangesData() const override { return false; }
  bool Skip(std::int64_t rows) override;
  bool Step() override;
  void Stop() noexcept override;
  platform::VariantView Value(std::size_t column) override {
    if (packed_row_) [[likely]]
      return packed_row_->Value(column);
    return long_cursor_ ? long_cursor_->Value(column) : block_->Value(row_, column);
  }
  platform::VariantView Stored(std::size_t column) override { return Value(column); }
  std::int64_t RowsAffected() const override { return -1; }
  const BaseTable& Table() override;

 private:
  enum class State { kKnown, kRunning, kDone };

  ShortCursor(Session& session, const Query& query)
      : session_(session), text_(query.text), max_records_(query.max_records) {}

  bool IsOneRow() const { return max_records_ == 1; }
  StatementCache::Yield Yield() const {
    return IsOneRow() ? StatementCache::Yield::kOneRow : StatementCache::Yield::kSomeRows;
  }
  bool Accepts(const std::string& text);
  bool Learn();
  bool RunDirectly();
  bool RunPrepared();
  StatementHandle Prepared() const;
  void BindNumbers(SQLHSTMT statement);
  bool HasKnownColumns(SQLHSTMT statement) const;
  void Defer();
  void Start();
  void Run();
  void OpenLongCursor();
  void MakeBlock();
  bool NextRow();

  Session& session_;
  const std::string text_;
  const std::int64_t max_records_;
  State state_ = State::kKnown;
  std::shared_ptr<const KnownQuery> known_;
  std::int64_t offset_ = 0;
  SQLBIGINT rows_parameter_ = 0;
  SQLBIGINT offset_parameter_ = 0;
  StatementHandle statement_;
  bool is_new_ = false;  ///< The query did not come before.
  bool is_prepared_ = false;
  std::optional<PackedRow> packed_row_;
  std::unique_ptr<RowBlock> block_;
  std::string_view rest_;                          ///< Of a packed page: the rows behind the current one.
  std::size_t row_ = 0;                            ///< Else: of the block.
  std::size_t block_rows_ = 0;                     ///< Rows in the block.
  std::unique_ptr<database::Cursor> long_cursor_;  ///< When more rows turn out to be wanted.
  std::optional<BaseTable> table_;
};

}  // namespace dralo::database::odbc
