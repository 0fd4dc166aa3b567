#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "database/session.h"
#include "database/sqlite/options.h"
#include "database/sqlite/statement.h"
#include "database/sqlite/time_limit.h"
#include "database/statement_cache.h"

namespace dralo::database::sqlite {

using StatementCache = database::StatementCache<Statement, 64>;

/// An open SQLite database.
///
/// Reset() rolls a transaction back and ends statements; the prepared statements, changes() and
/// last_insert_rowid() stay. A session is not kept when its user made temporary tables, views or triggers,
/// attached a database or set a pragma: the next user would meet them.
class Session final : public database::Session {
 public:
  /// Throws platform::Error when the file does not exist (and is not to be made) or does not open.
  explicit Session(const Options& options);

  std::unique_ptr<database::Cursor> Prepare(const Query& query) override;
  std::string QuoteName(std::string_view name) const override;
  std::string ProcedureCall(std::string_view name, std::size_t parameters) const override;
  std::string Unchanged(const Column& column, const std::string& quoted_column, bool was_null) const override;
  platform::Variant Stored(const Column& column, const platform::Variant& value) const override;
  bool CountsBesideRows(const Query& /*rows*/) const override { return true; }
  platform::Variant CountBeside(const Query& count, database::Cursor& rows) override;
  void Begin() override;
  void Commit() override;
  void Rollback() noexcept override;
  std::optional<std::int64_t> LastIdentity(const BaseTable& /*table*/,
                                           const Column& /*column*/) const override {
    return sqlite3_last_insert_rowid(Handle());
  }
  bool IsAlive() noexcept override;
  bool Reset() noexcept override;

  sqlite3* Handle() const { return handle_.get(); }

  TimeLimit& Limit() { return time_limit_; }

  /// The statement with a limit, or nullptr when it cannot have one.
  std::unique_ptr<Statement> TakeLimited(std::string_view text);

  void GiveBack(std::unique_ptr<Statement> statement) noexcept { cache_.Give(std::move(statement)); }

 private:
  struct Closer {
    void operator()(sqlite3* connection) const noexcept { sqlite3_close_v2(connection); }
  };

  std::unique_ptr<Statement> Take(const Query& query);
  static int Watch(void* session, int action, const char* name, const char* value, const char* database,
                   const char* trigger) noexcept;

  TimeLimit time_limit_;  ///< Before the handle, so that it is destroyed last.
  std::unique_ptr<sqlite3, Closer> handle_;
  StatementCache cache_;           ///< After the handle, so that it is destroyed first.
  int depth_ = 0;                  ///< How many Begin() have had no Commit() or Rollback().
  bool owns_transaction_ = false;  ///< The first Begin() began it; else it is part of the user's.
  bool has_leftovers_ = false;     ///< Something was done that Reset() cannot undo.
};

}  // namespace dralo::database::sqlite
