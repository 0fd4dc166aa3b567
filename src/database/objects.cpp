#include "database/objects.h"

#include "database/connection.h"
#include "database/recordset.h"
#include "database/session_pool.h"

namespace dralo::database {

std::shared_ptr<platform::Connection> MakeConnection(Providers providers,
                                                     const platform::Formatting* formatting) {
  return std::make_shared<Connection>(providers, formatting);
}

std::shared_ptr<platform::Recordset> MakeRecordset(const platform::Formatting* formatting) {
  return std::make_shared<Recordset>(formatting);
}

void CloseIdleConnections() { SessionPool::Instance().CloseIdle(); }

void LimitIdleConnections(std::size_t number, std::chrono::seconds idle_time) {
  SessionPool::Instance().SetLimits({number, idle_time});
}

void CloseStaleConnections() noexcept { SessionPool::Instance().CloseStale(); }

}  // namespace dralo::database
