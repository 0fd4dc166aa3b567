#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "database/provider.h"
#include "database/session_pool.h"
#include "dralo/connection.h"
#include "platform/formatting.h"

namespace dralo::database {

class Recordset;

/// A connection over a session of the pool. Always owned by a shared_ptr; open recordsets share it.
class Connection final : public platform::Connection, public std::enable_shared_from_this<Connection> {
 public:
  /// Opens databases of these providers. `formatting` recognises dates that are assigned to fields in
  /// regional form; it may be nullptr and must outlive the connection and its recordsets.
  Connection(Providers providers, const platform::Formatting* formatting)
      : providers_(providers), formatting_(formatting) {}

  void Open(std::string_view connection_string, std::string_view user = {}, std::string_view password = {},
            int options = -1) override;
  const std::string& ConnectionString() const override { return connection_string_; }
  bool IsOpen() const override { return session_ != nullptr; }
  int QueryTimeoutS() const override { return query_timeout_s_; }
  std::shared_ptr<platform::Recordset> Execute(std::string_view sql, std::int64_t* records_affected = nullptr,
                                               int options = -1) override;
  std::int64_t ChangeOneRecord(std::string_view sql,
                               std::span<const platform::Variant> parameters = {}) override;
  std::int64_t Run(std::string_view sql, std::span<const platform::Variant> parameters = {}) override;
  void Begin() override;
  void Commit() override;
  void Rollback() noexcept override;
  std::string QuoteName(std::string_view name) const override { return GetSession().QuoteName(name); }
  std::string QuoteExactName(std::string_view name) const override {
    return GetSession().QuoteExactName(name);
  }
  void Close() override;

  /// Throws platform::Error when the connection is closed or was opened by a parent process.
  Session& GetSession() const;

  /// Whether a parent process opened it; its session and cursors must then be left alone.
  bool IsInherited() const noexcept { return session_ && !session_->BelongsToThisProcess(); }

  /// Open recordsets, which Close() must close first.
  void Attach(Recordset& recordset) { recordsets_.push_back(&recordset); }
  void Detach(Recordset& recordset) noexcept { std::erase(recordsets_, &recordset); }

 private:
  Providers providers_;
  const platform::Formatting* formatting_;
  std::string connection_string_;
  int query_timeout_s_ = kDefaultQueryTimeoutS;
  PooledSession session_;
  int begun_ = 0;  ///< How many Begin() have had no Commit() or Rollback().
  std::vector<Recordset*> recordsets_;
};

}  // namespace dralo::database
