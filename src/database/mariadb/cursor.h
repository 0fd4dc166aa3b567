#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "database/cursor.h"
#include "database/mariadb/link.h"
#include "database/mariadb/parameters.h"
#include "database/mariadb/row.h"
#include "database/mariadb/statement.h"
#include "database/query.h"
#include "database/rows_aside.h"
#include "database/statement_kind.h"

namespace dralo::database::mariadb {

class Session;

/// A prepared statement of the session while it is in use. A query runs at the first Step(), any other
/// statement at once.
///
/// The rows come from the server one by one, so that the longest result takes no more memory than a short
/// one. But a connection carries one result at a time. So the rest of the rows is read at once and put aside
/// before another statement is sent, and when a page takes so long over its rows that the server would end
/// the statement. It is put aside in memory as long as it is short, else in a temporary file. That costs less
/// than the alternatives: keeping the whole result takes memory, a cursor of the server copies it before the
/// first row, and a second connection would not see what the transaction of the first has changed.
///
/// Putting aside lasts as long as the server sends, limited only by the server, and takes as much room as the
/// rows need.
///
/// When a result is left early, a short rest is read. With a long rest the session leaves its connection,
/// which is cheaper than reading it, unless that would lose a transaction or traces of the page.
class Cursor final : public database::Cursor, public RowReader {
 public:
  /// Throws platform::Error when the statement is not accepted or the number of parameters is wrong.
  Cursor(Session& session, const Query& query);
  ~Cursor() override;

  std::shared_ptr<const Columns> GetColumns() const override { return statement_->Describe().columns; }

  /// Prepares the statement anew.
  void FixColumns() override;
  platform::TypeCode Type(std::size_t column) const override { return (*GetColumns())[column].type; }
  bool ChangesData() const override { return !kind_.is_query; }
  bool Skip(std::int64_t rows) override;
  bool Step() override;
  void Stop() noexcept override;
  platform::VariantView Value(std::size_t column) override { return row_->Value(column); }
  platform::VariantView Stored(std::size_t column) override;
  std::int64_t RowsAffected() const override { return statement_->RowsAffected(); }
  const BaseTable& Table() override;

  void PutRestAside() noexcept override;

 private:
  enum class State { kPrepared, kReading, kAside, kDone };

  void Open();
  void Execute();
  bool NextRow();
  bool NextRowAside();
  void Leave();
  void Abandon() noexcept;

  Session& session_;
  const std::string text_;
  const StatementKind kind_;
  const std::int64_t max_records_;
  Parameters parameters_;
  std::unique_ptr<Statement> statement_;
  State state_ = State::kPrepared;
  std::int64_t offset_ = 0;
  std::unique_ptr<Row> row_;
  std::chrono::nanoseconds patience_ends_ = {};
  std::optional<RowsAside> aside_;
  std::map<std::size_t, std::string> stored_texts_;
  std::optional<BaseTable> table_;
};

}  // namespace dralo::database::mariadb
