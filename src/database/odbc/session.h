#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "database/odbc/link.h"
#include "database/odbc/options.h"
#include "database/odbc/statement_cache.h"
#include "database/session.h"
#include "database/statement_kind.h"

namespace dralo::database::odbc {

/// An open connection to a database behind ODBC.
///
/// Reset() rolls a transaction back. A session is not kept when its user changed settings, made temporary
/// tables, took locks, or called a procedure or a function that may do so. IsAlive() asks the server.
class Session final : public database::Session {
 public:
  /// Throws platform::Error when the database does not open.
  explicit Session(const Options& options);
  ~Session() override { statements_.Abandon(); }

  std::unique_ptr<database::Cursor> Prepare(const Query& query) override;
  std::string QuoteName(std::string_view name) const override;
  std::string QuoteExactName(std::string_view name) const override;
  std::string ProcedureCall(std::string_view name, std::size_t parameters) const override;
  std::string Unchanged(const Column& column, const std::string& quoted_column, bool was_null) const override;
  std::string_view RowLock() const override;
  platform::Variant Stored(const Column& column, const platform::Variant& value) const override;
  std::string_view DefaultValues() const override { return link_.GetDialect().defaults; }
  void Begin() override;
  void Commit() override;
  void Rollback() noexcept override;
  std::optional<std::int64_t> LastIdentity(const BaseTable& table, const Column& column) const override;
  bool IsAlive() noexcept override;
  bool Reset() noexcept override;

  const Link& GetLink() const { return link_; }

  StatementCache& Statements() { return statements_; }

  /// After a statement was run: remembers what it did to the session.
  void Note(const StatementKind& kind);

 private:
  bool SwitchAutocommit(bool is_on) const;
  bool EndTransaction(SQLSMALLINT how) const;
  void CommitOutermost();

  Link link_;
  StatementCache statements_;
  bool is_in_transaction_ = false;  ///< The user has begun one.
  int depth_ = 0;                   ///< How many Begin() are open.
  bool owns_transaction_ = false;   ///< The first Begin() began it.
  bool has_traces_ = false;
};

}  // namespace dralo::database::odbc
