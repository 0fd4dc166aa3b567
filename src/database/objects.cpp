#include "database/objects.h"

#include "database/connection.h"
#include "database/recordset.h"
#include "database/session_pool.h"

namespace dralo::database {

std::shared_ptr<platform::Connection> MakeConnection(const platform::Formatting* formatting) {
  return std::make_shared<Connection>(formatting);
}

std::shared_ptr<platform::Recordset> MakeRecordset(const platform::Formatting* formatting) {
  return std::make_shared<Recordset>(formatting);
}

void CloseIdleConnections() { SessionPool::Instance().CloseIdle(); }

}  // namespace dralo::database
