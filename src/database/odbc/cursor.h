#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "database/cursor.h"
#include "database/odbc/binding.h"
#include "database/odbc/description.h"
#include "database/odbc/packed_row.h"
#include "database/odbc/row_block.h"
#include "database/odbc/server_cursor.h"
#include "database/odbc/session.h"
#include "database/query.h"

namespace dralo::database::odbc {

/// A statement of a driver. Where that saves a round trip it is run as soon as it is prepared, but reads no
/// more rows than are asked for.
class Cursor final : public database::Cursor {
 public:
  /// Throws platform::Error when the statement is not accepted or the number of parameters is wrong.
  Cursor(Session& session, const Query& query);
  ~Cursor() override;

  std::shared_ptr<const Columns> GetColumns() const override { return description_.columns; }
  void FixColumns() override {}
  platform::TypeCode Type(std::size_t column) const override { return (*description_.columns)[column].type; }
  bool ChangesData() const override { return !kind_.is_query; }
  bool Skip(std::int64_t rows) override;
  bool Step() override;
  void Stop() noexcept override;
  platform::VariantView Value(std::size_t column) override {
    return packed_row_ ? packed_row_->Value(column) : block_->Value(row_, column);
  }
  platform::VariantView Stored(std::size_t column) override {
    // In SQLite a date may be spelled in several ways, and compares as the text that it is.
    return link_.GetDialect() == Dialect::kSqlite ? block_->Stored(row_, column) : Value(column);
  }
  std::int64_t RowsAffected() const override { return rows_affected_; }
  const BaseTable& Table() override;

 private:
  enum class State { kPrepared, kRunning, kDone };

  void RequireParameterCount();
  bool IsLazy() const;
  bool OpenServerCursor();
  void Prepare();
  void Run(std::string_view text);
  bool RunLimited();
  std::string Limited(std::int64_t rows, std::int64_t offset) const;
  void AfterRun();
  bool FindResultWithColumns();
  std::unique_ptr<RowBlock> NewBlock() const;
  bool NextBlock();
  void ReadAhead();
  bool FetchMore();
  SQLHSTMT Statement() const { return statement_.Get(); }

  Session& session_;
  const Link& link_;
  const std::string text_;
  const StatementKind kind_;
  Binding parameters_;
  const std::int64_t max_records_;
  const bool is_updatable_;
  StatementHandle statement_;
  StatementHandle statement_ahead_;
  std::optional<ServerCursor> server_cursor_;
  State state_ = State::kPrepared;
  Description description_;
  std::unique_ptr<RowBlock> block_;
  std::unique_ptr<RowBlock> block_ahead_;  ///< Of the statement ahead.
  std::optional<PackedRow> packed_row_;
  std::size_t row_ = 0;         ///< Of the block.
  std::size_t block_rows_ = 0;  ///< Rows in the block.
  std::int64_t fetched_ = 0;    ///< Rows of the server cursor's last fetch that were read.
  std::int64_t offset_ = 0;     ///< Rows to pass over.
  bool is_limited_ = false;     ///< The limit stands behind the text.
  std::int64_t rows_affected_ = 0;
  std::optional<BaseTable> table_;
};

}  // namespace dralo::database::odbc
