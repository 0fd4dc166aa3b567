#include "database/session.h"

#include "database/process_id.h"

namespace dralo::database {

Session::Session() : process_(ProcessId()) {}

std::int64_t Session::Run(const Query& query) {
  const auto cursor = Prepare(query);
  while (cursor->Step()) {
  }
  return cursor->RowsAffected();
}

bool Session::BelongsToThisProcess() const noexcept { return process_ == ProcessId(); }

}  // namespace dralo::database
