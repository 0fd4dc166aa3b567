#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "database/postgresql/execution.h"
#include "database/postgresql/link.h"
#include "database/postgresql/options.h"
#include "database/postgresql/statement.h"
#include "database/postgresql/table_catalog.h"
#include "database/postgresql/table_keys.h"
#include "database/session.h"
#include "dralo/error.h"

namespace dralo::database::postgresql {

class Cursor;

/// An open connection to a PostgreSQL database.
///
/// Reset() rolls a transaction back and, where the user called functions or changed settings, made temporary
/// tables or took locks, takes that back; prepared statements of the component stay. A session whose server
/// refused a change is not kept. IsAlive() looks at the
/// socket. Should the connection be lost, a query opens it again where nothing of the user's is lost with it,
/// and so does the next statement behind a transaction of the component.
class Session final : public database::Session {
 public:
  /// Throws platform::Error when the database does not open.
  explicit Session(const Options& options);

  std::unique_ptr<database::Cursor> Prepare(const Query& query) override;
  std::string QuoteName(std::string_view name) const override;
  std::string QuoteExactName(std::string_view name) const override;
  std::string ProcedureCall(std::string_view name, std::size_t parameters) const override;
  std::string Unchanged(const Column& column, const std::string& quoted_column, bool was_null) const override;
  std::string_view RowLock() const override { return " FOR UPDATE"; }
  platform::Variant Stored(const Column& /*column*/, const platform::Variant& value) const override {
    return value;
  }
  void Begin() override;
  void Commit() override;
  void Rollback() noexcept override;
  bool MayRepeatAfter(const platform::Error& error) const override;
  Inserted Insert(const Query& insert, const BaseTable& table, const Column* numbered) override;
  bool CountsBesideRows(const Query& rows) const override;
  platform::Variant CountBeside(const Query& count, database::Cursor& rows) override;
  bool IsAlive() noexcept override;
  bool Reset() noexcept override;

  Link& GetLink() const { return *link_; }
  TableCatalog& Catalog() { return catalog_; }
  TableKeys& Keys() { return keys_; }
  StatementCache& Statements() { return statements_; }

  /// Keeps a query for the next time.
  void Keep(const StatementCache::Key& key, std::shared_ptr<Statement> statement);

  /// `cursor` is not run yet: its StartEarly() must run it before a statement that may change what it yields.
  void Defer(Cursor& cursor) { deferred_.push_back(&cursor); }
  void Undefer(const Cursor& cursor) noexcept { std::erase(deferred_, &cursor); }

  /// To be called before such a statement.
  void RunDeferred() noexcept;

  /// Gives a query that came again a name, under which the server keeps it prepared; unless nothing may stay
  /// prepared.
  void GiveName(Statement& statement);

  /// The server must no longer use what it has prepared, for the first rows too.
  void Unprepare(Statement& statement);

  /// Before a statement is run: remembers what it does to the session.
  void Note(const StatementKind& kind, std::string_view text);

  /// What must be sent before the statement: a transaction that was asked for but not begun yet, or a
  /// savepoint of its own. To be called before the orders of a trip, which are then sent.
  Execution::Opening TakeOpening(const StatementKind& kind);

  /// Whether another connection would do as well. To be called before the orders of a trip.
  bool IsReplaceable() const;

  /// Whether the next statement is a part of a transaction. Between two trips.
  bool HasTransaction() const { return IsInTransaction() || is_begin_due_; }

  /// For a cursor of the server.
  std::string NewCursorName() { return "dralo_rows_" + std::to_string(++last_cursor_); }

  /// What `run`, which runs a query, returns. Should the connection be lost, or have been while the session
  /// was kept, it is opened again, and `run` called again, unless a transaction or something of the user's
  /// went with it.
  template <typename Function>
  auto Reconnecting(const StatementKind& kind, const Function& run) {
    const bool may_repeat = kind.is_query && !kind.calls_functions && HasNothingToLose();
    try {
      return run();
    } catch (const platform::Error& error) {
      if (!may_repeat || !IsLoss(error)) throw;
    }
    link_->Drop();
    return run();
  }

 private:
  static bool IsLoss(const platform::Error& error);
  bool HasNothingToLose() const;
  bool IsInTransaction() const { return link_->Transaction() == PQTRANS_INTRANS; }
  void BeginNow();
  void CommitNow();
  void RollBackNow(bool is_outermost) noexcept;
  void DeallocateUnused();
  std::int64_t AskNumber(const std::string& query) const;
  std::string Savepoint(int depth) const { return "dralo_" + std::to_string(depth); }
  bool Clean();

  const bool prepares_;
  std::unique_ptr<Link> link_;
  StatementCache statements_;
  TableCatalog catalog_;
  TableKeys keys_;
  std::vector<Cursor*> deferred_;
  std::vector<std::string> unused_names_;  ///< Of statements that the server keeps prepared.
  std::int64_t last_name_ = 0;
  std::int64_t last_cursor_ = 0;
  int depth_ = 0;                  ///< How many Begin() are open.
  bool owns_transaction_ = false;  ///< The first Begin() began it.
  bool is_begin_due_ = false;      ///< To be sent with the next statement.
  bool has_traces_ = false;        ///< Of the user, and visible to the next one.
  bool has_prepared_ = false;      ///< The user has prepared statements, by SQL.
};

}  // namespace dralo::database::postgresql
