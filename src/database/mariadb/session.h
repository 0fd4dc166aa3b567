#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "database/mariadb/catalog.h"
#include "database/mariadb/link.h"
#include "database/mariadb/options.h"
#include "database/mariadb/statement.h"
#include "database/mariadb/transactions.h"
#include "database/session.h"
#include "database/statement_cache.h"
#include "database/statement_kind.h"
#include "dralo/error.h"

namespace dralo::database::mariadb {

/// An open connection to MariaDB or MySQL.
///
/// Between two users nothing is sent if the last one only read and saved; his prepared statements stay. An
/// open transaction is rolled back. After anything else, such as a setting, a temporary table, a lock or a
/// function of the page's own, the server resets the session, which costs the prepared statements.
///
/// IsAlive() asks the socket, after a long rest the server. Should the connection be lost, a query opens it
/// again where nothing of the user's is lost with it, and so does the next statement behind a transaction of
/// the component.
class Session final : public database::Session {
 public:
  /// Throws platform::Error when the database does not open.
  explicit Session(const Options& options) : link_(options), transactions_(link_) {}

  std::unique_ptr<database::Cursor> Prepare(const Query& query) override;
  std::string QuoteName(std::string_view name) const override;
  std::string ProcedureCall(std::string_view name, std::size_t parameters) const override;
  std::string Unchanged(const Column& column, const std::string& quoted_column, bool was_null) const override;
  std::string_view RowLock() const override { return " FOR UPDATE"; }
  platform::Variant Stored(const Column& column, const platform::Variant& value) const override;
  std::string_view DefaultValues() const override { return " () VALUES ()"; }
  void Begin() override;
  void Commit() override;
  void Rollback() noexcept override;
  bool MayRepeatAfter(const platform::Error& error) const override;
  std::optional<std::int64_t> LastIdentity(const BaseTable& /*table*/,
                                           const Column& /*column*/) const override {
    return last_identity_;
  }
  bool IsAlive() noexcept override;
  bool Reset() noexcept override;

  Link& GetLink() { return link_; }

  /// The database in which tables without one are looked for.
  std::string CurrentDatabase() const;

  /// The statement for the unchanged text of a page. Throws platform::Error when it is not accepted.
  std::unique_ptr<Statement> TakePlain(std::string_view text, const StatementKind& kind);

  /// The statement with a limit after the text; nullptr when it cannot have one.
  std::unique_ptr<Statement> TakeLimited(std::string_view text);

  /// Drops what is kept for the text.
  void Forget(std::string_view text) noexcept { cache_.Forget(text); }

  /// Keeps a statement that has ended for its next use. A change that yields rows is not kept: that its
  /// columns are different now would show only after it was carried out.
  void GiveBack(std::unique_ptr<Statement> statement, const StatementKind& kind) noexcept;

  /// What `run`, which runs a statement of that kind, returns. Should the connection be lost, or have been
  /// while the session was kept, it is opened again, and `run` called again, unless a transaction or
  /// something of the user's went with it.
  template <class Function>
  auto Reconnecting(const StatementKind& kind, const Function& run) {
    const bool may_repeat = kind.is_query && !kind.calls_functions && !link_.IsDead() && MayLeave();
    try {
      return run();
    } catch (const platform::Error&) {
      if (!may_repeat || !link_.IsDead() || link_.IsGivenUp()) throw;
    }
    Connect();
    return run();
  }

  /// Before anything is sent: has the cursor that is reading put the rest of its rows aside. Opens a new
  /// connection when the last one was left.
  void Settle();

  /// Before a statement is run, which may have effects even if it fails. Throws platform::Error when the
  /// transaction that it would be part of is gone.
  void Expect(const StatementKind& kind, std::string_view text);

  /// After a statement was run: remembers what it did to the session.
  void Note(const StatementKind& kind, std::int64_t last_identity);

  /// Whether nothing of the user's would be lost with the connection.
  bool MayLeave() const { return !has_traces_ && !transactions_.AreOpen(); }

  /// Leaves the connection with all that the server is still sending; another is opened when it is needed.
  /// Returns false, and has done nothing, when something would be lost.
  bool Leave() noexcept;

 private:
  void Connect();
  std::unique_ptr<Statement> Prepare(std::string_view text, Form form, std::string_view behind);
  std::unique_ptr<Statement> MakeStatement(std::string_view text, Form form, const std::string& sql);
  std::string OrderedByKey(std::string_view text);
  Names KeyOf(const std::string& database, const std::string& table);
  void ForgetOldKeys() noexcept;

  Link link_;
  Transactions transactions_;
  StatementCache<Statement, 32> cache_;                        ///< After the link, to be destroyed first.
  std::map<std::pair<std::string, std::string>, Names> keys_;  ///< Of tables, by their database and name.
  std::chrono::steady_clock::time_point keys_since_ = std::chrono::steady_clock::now();
  bool was_left_ = false;
  bool has_traces_ = false;
  bool has_left_database_ = false;  ///< A statement of the page chose another one.
  std::int64_t last_identity_ = 0;
  std::chrono::steady_clock::time_point last_use_ = std::chrono::steady_clock::now();
};

}  // namespace dralo::database::mariadb
