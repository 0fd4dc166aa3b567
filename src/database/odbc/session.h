#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "database/odbc/link.h"
#include "database/odbc/options.h"
#include "database/odbc/statement_cache.h"
#include "database/session.h"
#include "database/statement_kind.h"
#include "dralo/error.h"

namespace dralo::database::odbc {

/// An open connection to a database behind ODBC.
///
/// Reset() rolls a transaction back. A session whose user changed settings, made temporary tables, took locks
/// or called a procedure, which may do all of these, is not kept. Neither is one that called a function of
/// its own, except of PostgreSQL, where a statement takes such traces back. IsAlive() asks the socket; only
/// where that is not known, or after a long rest, the server. Should the server have gone in this very
/// moment, the first query opens the connection again.
class Session final : public database::Session {
 public:
  /// Throws platform::Error when the database does not open.
  explicit Session(const Options& options);
  ~Session() override { statements_.Abandon(); }

  std::unique_ptr<database::Cursor> Prepare(const Query& query) override;
  std::string QuoteName(std::string_view name) const override;
  std::string ProcedureCall(std::string_view name, std::size_t parameters) const override;
  std::string Unchanged(const Column& column, const std::string& quoted_column, bool was_null) const override;
  platform::Variant Stored(const Column& column, const platform::Variant& value) const override;
  std::string InsertOfDefaults(const std::string& quoted_table) const override;
  void Begin() override;
  void Commit() override;
  void Rollback() noexcept override;
  std::int64_t LastIdentity(const BaseTable& table, const Column& column) const override;
  bool IsAlive() noexcept override;
  bool Reset() noexcept override;

  /// Another one after Reconnecting().
  const Link& GetLink() const { return *link_; }

  StatementCache& Statements() { return statements_; }

  /// What `run`, which runs the query `text`, returns. Should the server have gone while the session was
  /// kept, this is where it shows: the connection is opened again, and `run` called again.
  template <typename Function>
  auto Reconnecting(std::string_view text, const Function& run) {
    const bool was_fresh = std::exchange(is_fresh_, false);
    try {
      return run();
    } catch (const platform::Error& error) {
      if (!was_fresh || !MayReconnect(error, text)) throw;
    }
    Reconnect();
    return run();
  }

  /// Before any statement but those of an open cursor: waits for one that runs in the background, and gives
  /// up the transaction that a cursor keeps open, which goes on without it.
  void Settle();

  /// `cursor` is not run yet: that is to be done, by its FixColumns(), before a statement that may change
  /// what it yields.
  void Defer(database::Cursor& cursor) { deferred_.push_back(&cursor); }
  void Undefer(const database::Cursor& cursor) noexcept { std::erase(deferred_, &cursor); }

  /// Before such a statement. A cursor that fails now will say so when it is asked for a row.
  void RunDeferred() noexcept;

  /// After a statement was run: remembers what it did to the session.
  void Note(const StatementKind& kind);

  /// Whether the user's transaction is open.
  bool IsInTransaction() const { return is_in_transaction_; }

  /// The transaction of a cursor; there is one at a time.
  void SetCursorTransaction(bool is_open) { has_cursor_transaction_ = is_open; }
  bool HasCursorTransaction() const { return has_cursor_transaction_; }

  /// A name that no other cursor of the session has.
  std::string NewCursorName() { return "dralo_" + std::to_string(++last_cursor_); }

 private:
  bool SwitchAutocommit(bool is_on) const;
  void BeginFlat();

  bool MayReconnect(const platform::Error& error, std::string_view text) const;
  void Reconnect();

  const Options options_;
  std::unique_ptr<Link> link_;
  StatementCache statements_;  ///< Of the link.
  std::vector<database::Cursor*> deferred_;
  bool is_fresh_ = false;  ///< Nothing was run since it was taken from the pool.
  bool is_in_transaction_ = false;
  bool has_cursor_transaction_ = false;
  int depth_ = 0;                  ///< Calls of Begin() that are open.
  bool owns_transaction_ = false;  ///< The outermost of them began it.
  bool has_traces_ = false;
  bool called_functions_ = false;
  std::int64_t last_cursor_ = 0;
  std::chrono::steady_clock::time_point last_use_ = std::chrono::steady_clock::now();
};

}  // namespace dralo::database::odbc
