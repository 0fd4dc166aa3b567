#include "database/connection.h"

#include "database/connection_string.h"
#include "database/recordset.h"
#include "database/repetition.h"
#include "database/source_text.h"
#include "dralo/error.h"
#include "platform/transaction.h"

namespace dralo::database {

using platform::Error;

void Connection::Open(std::string_view connection_string, std::string_view user, std::string_view password,
                      int /*options*/) {
  if (session_) throw Error("The connection is open already; close it first");
  database::ConnectionString settings(connection_string);
  settings.Add("User ID", user);
  settings.Add("Password", password);
  const Provider& provider = FindProvider(providers_, settings);
  const std::string key = provider.PoolKey(settings);

  SessionPool& pool = SessionPool::Instance();
  PooledSession session = pool.Take(key);
  if (!session) session = pool.Adopt(provider.Connect(settings), key);
  connection_string_ = settings.WithoutPassword();
  query_timeout_s_ = settings.Seconds("Query Timeout", kDefaultQueryTimeoutS);
  session_ = std::move(session);
}

std::shared_ptr<platform::Recordset> Connection::Execute(std::string_view sql, std::int64_t* records_affected,
                                                         int options) {
  auto recordset = std::make_shared<Recordset>(formatting_);
  const std::int64_t affected = recordset->Run(shared_from_this(), sql, options);
  if (records_affected) *records_affected = affected;
  return recordset;
}

std::int64_t Connection::ChangeOneRecord(std::string_view sql,
                                         std::span<const platform::Variant> parameters) {
  Session& session = GetSession();
  const std::string text = StatementOf(session, sql);
  std::int64_t changed = 0;
  RepeatingAfterConflict(session, [&] {
    platform::Transaction transaction(session);
    changed = session.Run({text, parameters});
    if (changed <= 1) transaction.Commit();
  });
  return changed;
}

std::int64_t Connection::Run(std::string_view sql, std::span<const platform::Variant> parameters) {
  return GetSession().Run({sql, parameters});
}

void Connection::Begin() {
  GetSession().Begin();
  ++begun_;
}

void Connection::Commit() {
  Session& session = GetSession();
  if (begun_ == 0) throw Error("There is no transaction to commit; begin one first");
  session.Commit();
  --begun_;
}

void Connection::Rollback() noexcept {
  if (begun_ == 0) return;
  --begun_;
  if (session_ && !IsInherited()) session_->Rollback();
}

void Connection::Close() {
  while (!recordsets_.empty()) recordsets_.back()->Close();
  while (begun_ > 0) Rollback();
  session_.reset();
}

Session& Connection::GetSession() const {
  if (!session_) throw Error("The connection is closed");
  if (!session_->BelongsToThisProcess()) {
    throw Error("The connection was opened by the parent process; open a new one after fork()");
  }
  return *session_;
}

}  // namespace dralo::database
