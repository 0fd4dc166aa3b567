#include "database/session.h"

#include "database/process_id.h"
#include "dralo/error.h"

namespace dralo::database {

Session::Session() : process_(ProcessId()) {}

std::int64_t Session::Run(const Query& query) {
  const auto cursor = Prepare(query);
  while (cursor->Step()) {
  }
  return cursor->RowsAffected();
}

Session::Inserted Session::Insert(const Query& insert, const BaseTable& table, const Column* numbered) {
  Inserted inserted{.rows = Run(insert)};
  if (numbered == nullptr || inserted.rows != 1) return inserted;
  if (const auto number = LastIdentity(table, *numbered)) inserted.number = *number;
  return inserted;
}

platform::Variant Session::Ask(const Query& query) {
  const auto cursor = Prepare(query);
  platform::Variant value = FirstValue(*cursor, query);
  cursor->Stop();
  return value;
}

platform::Variant Session::FirstValue(Cursor& cursor, const Query& query) {
  if (cursor.GetColumns()->empty() || !cursor.Step())
    throw platform::Error("The statement yields no value", 0, {}, std::string(query.text));
  return platform::Own(cursor.Value(0));
}

bool Session::BelongsToThisProcess() const noexcept { return process_ == ProcessId(); }

}  // namespace dralo::database
