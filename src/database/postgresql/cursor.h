#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "database/cursor.h"
#include "database/postgresql/execution.h"
#include "database/postgresql/parameters.h"
#include "database/postgresql/result_rows.h"
#include "database/postgresql/session.h"
#include "database/postgresql/statement.h"
#include "database/query.h"
#include "dralo/error.h"

namespace dralo::database::postgresql {

/// A statement. One that changes data is run when it is prepared. So is a query that calls functions, which
/// may do something, where a few rows or all are wanted and none is to be changed; and a query that is new
/// and of which only a few rows are wanted, because that saves a round trip. All other queries are run when a
/// row is asked for; those of which only a few rows are wanted also before a statement that may change them.
///
/// Equal sort keys have the same order on all pages of a query: the keys of its tables stand behind its
/// order, or else the rows of all pages come from the same plan.
class Cursor final : public database::Cursor {
 public:
  /// Throws platform::Error when the statement is not accepted or the number of parameters is wrong.
  Cursor(Session& session, const Query& query);
  ~Cursor() override { Stop(); }

  /// The only value of `count`, in the same trip as the rows if these come as one answer. A failure of the
  /// rows is thrown by the next Step().
  platform::Variant Count(const Query& count);

  /// Runs a query that was not run yet. If it fails, that is thrown when a row is asked for.
  void StartEarly() noexcept;

  std::shared_ptr<const Columns> GetColumns() const override { return description_->columns; }
  platform::TypeCode Type(std::size_t column) const override { return (*GetColumns())[column].type; }
  bool ChangesData() const override { return !statement_->kind.is_query; }
  bool Skip(std::int64_t rows) override;
  bool Step() override;
  void Stop() noexcept override;
  platform::VariantView Value(std::size_t column) override;
  platform::VariantView Stored(std::size_t column) override { return Value(column); }
  std::int64_t RowsAffected() const override { return rows_affected_; }
  const BaseTable& Table() override;

 private:
  enum class State { kPrepared, kRunning, kDone };
  struct Unsent {};

  /// Nothing is sent yet.
  Cursor(Session& session, const Query& query, Unsent);

  bool MakeReady();
  bool IsCounting() const { return count_ && !counted_; }
  void CountAlone();
  std::shared_ptr<Statement> NewStatement(std::string_view text) const;
  void ChooseForm();
  void Prepare();
  std::int64_t RowsWanted() const { return max_records_ - offset_; }
  bool IsShort() const;
  bool IsLong() const;
  Parameters ParametersOfForm() const;
  void Start();
  void Run(Execution::Rows rows);
  void Send(Execution::Rows rows);
  void Send(Execution::Rows rows, bool may_drop);
  Execution::Opening TakeOpening(Execution::Rows rows, bool is_replaceable);
  bool MayUseServerCursor() const;
  void OpenServerCursor();
  void Split(const Execution& execution, const Result& columns, bool may_drop);
  void Adopt(Result answer);
  void Open();
  bool MayRunAgain(const platform::Error& error, bool was_prepared);
  void Learn(const Result& answer);

  /// Returns what `run` returns; its error gets the statement as its source.
  template <class Function>
  auto WithSource(const Function& run) const;

  Session& session_;
  Link& link_;
  const Parameters parameters_;
  const StatementCache::Key key_;
  const std::int64_t max_records_;
  const bool is_updatable_;
  std::unique_ptr<Cursor> count_;             ///< Counts the rows; run before them in one trip.
  std::optional<platform::Variant> counted_;  ///< What it found.
  std::shared_ptr<Statement> query_;          ///< The one that the session keeps.
  std::shared_ptr<Statement> statement_;      ///< The one that is run: it, or that of its first rows.
  std::shared_ptr<const Description> description_;
  std::int64_t offset_ = 0;     ///< Rows to skip.
  std::int64_t rows_read_ = 0;  ///< Of those after the skipped ones.
  State state_ = State::kPrepared;
  std::unique_ptr<ResultRows> rows_;
  std::vector<std::string> scratch_;
  std::int64_t rows_affected_ = -1;
  std::optional<BaseTable> table_;
};

template <class Function>
auto Cursor::WithSource(const Function& run) const {
  try {
    return run();
  } catch (const platform::Error& error) {
    if (!error.Source().empty()) throw;
    throw platform::Error(error.what(), error.Number(), error.SqlState(), statement_->text);
  }
}

}  // namespace dralo::database::postgresql
