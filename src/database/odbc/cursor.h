#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "database/cursor.h"
#include "database/odbc/binding.h"
#include "database/odbc/row.h"
#include "database/odbc/session.h"
#include "database/odbc/statement.h"
#include "database/query.h"

namespace dralo::database::odbc {

/// A statement of a driver. A query is prepared, or taken from those that the session keeps prepared, and run
/// at the first Step(), when only some of its rows may be wanted or when they are to be changed. Any other
/// statement is run at once, because it may be there for what its functions do.
class Cursor final : public database::Cursor {
 public:
  /// Throws platform::Error when the statement is not accepted or the number of parameters is wrong.
  Cursor(Session& session, const Query& query);
  ~Cursor() override;

  std::shared_ptr<const Columns> GetColumns() const override { return description_.columns; }
  platform::TypeCode Type(std::size_t column) const override { return (*description_.columns)[column].type; }
  bool ChangesData() const override { return !kind_.is_query; }
  bool Skip(std::int64_t rows) override;
  bool Step() override;
  void Stop() noexcept override;
  platform::VariantView Value(std::size_t column) override { return row_->Value(column); }
  platform::VariantView Stored(std::size_t column) override { return Value(column); }
  std::int64_t RowsAffected() const override { return rows_affected_; }
  const BaseTable& Table() override;

 private:
  enum class State { kPrepared, kRunning, kDone };

  void OpenQuery();
  std::unique_ptr<Statement> Prepared(bool is_limited);
  std::unique_ptr<Statement> TryLimited();
  void OpenChange();
  void Execute();
  void Run();
  void AdoptColumns();
  bool FindResultWithColumns();
  bool NextRow();
  SQLHSTMT Handle() const { return statement_->handle.Get(); }

  Session& session_;
  const Link& link_;
  const std::string text_;
  const StatementKind kind_;
  Binding parameters_;
  const std::int64_t max_records_;
  const bool is_updatable_;
  std::unique_ptr<Statement> statement_;
  bool was_kept_ = false;  ///< From the session's cache.
  State state_ = State::kPrepared;
  Description description_;
  std::optional<Row> row_;
  std::int64_t offset_ = 0;  ///< Rows to skip.
  std::int64_t rows_affected_ = 0;
  std::optional<BaseTable> table_;
};

}  // namespace dralo::database::odbc
