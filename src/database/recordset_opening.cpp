#include <string>
#include <utility>

#include "database/recordset.h"
#include "database/source_text.h"
#include "dralo/error.h"

namespace dralo::database {

using platform::Error;

namespace {

bool AreUpdatable(platform::CursorLocation location, platform::CursorType cursor, platform::LockType lock) {
  return location == platform::CursorLocation::kClient && cursor == platform::CursorType::kKeyset &&
         lock == platform::LockType::kOptimistic;
}

std::shared_ptr<Connection> RequireConnection(const std::shared_ptr<platform::Connection>& connection) {
  if (!connection) throw Error("The recordset has no connection");
  auto ours = std::dynamic_pointer_cast<Connection>(connection);
  if (!ours) throw Error("The recordset's connection is of another class");
  return ours;
}

}  // namespace

void Recordset::Open(std::string_view sql, const std::shared_ptr<platform::Connection>& connection,
                     platform::CursorType cursor, platform::LockType lock, int options) {
  RequireClosed();
  auto ours = RequireConnection(connection);
  const std::string text = StatementOf(ours->GetSession(), sql, options);
  Start(std::move(ours), {text, {}, max_records_, AreUpdatable(location_, cursor, lock)});
}

void Recordset::Open(platform::Command& command, platform::CursorType cursor, platform::LockType lock,
                     int options) {
  RequireClosed();
  RequireKnown(options);
  auto ours = RequireConnection(command.active_connection);
  const std::string text = StatementOf(ours->GetSession(), command);
  Start(std::move(ours), {text, command.parameters, max_records_, AreUpdatable(location_, cursor, lock)});
}

std::int64_t Recordset::Run(std::shared_ptr<Connection> connection, std::string_view sql, int options) {
  const std::string text = StatementOf(connection->GetSession(), sql, options);
  return Start(std::move(connection), {text, {}, max_records_});
}

std::int64_t Recordset::Start(std::shared_ptr<Connection> connection, Query query) {
  Session& session = connection->GetSession();
  counted_.reset();
  const Query count{.text = counting_, .parameters = counting_parameters_, .max_records = 1};
  if (!counting_.empty() && session.CountsBesideRows(query)) {
    query.counting = counting_;
    query.counting_parameters = counting_parameters_;
  } else if (!counting_.empty()) {
    counted_ = session.Ask(count);
  }
  auto cursor = session.Prepare(query);
  auto columns = cursor->GetColumns();
  const bool changes_data = cursor->ChangesData();
  // If counting fails, the statement must not run.
  if ((columns->empty() || changes_data) && !counting_.empty() && !counted_) counted_ = session.Ask(count);
  if (columns->empty()) {
    cursor->Step();
    return cursor->RowsAffected();
  }
  ClientCursor* client = nullptr;
  if (query.is_updatable || changes_data) {
    auto owned = std::make_unique<ClientCursor>(std::move(cursor), query.max_records);
    client = owned.get();
    if (changes_data) client->Load();
    cursor = std::move(owned);
  }
  Take(std::move(connection), std::move(cursor));
  updatable_ = query.is_updatable ? client : nullptr;
  return changes_data ? cursor_->RowsAffected() : 0;
}

/// Stands before the first row of the cursor.
void Recordset::Take(std::shared_ptr<Connection> connection, std::unique_ptr<Cursor> cursor) {
  connection->Attach(*this);
  connection_ = std::move(connection);
  cursor_ = std::move(cursor);
  field_pointers_.clear();
  fields_.clear();
  columns_ = cursor_->GetColumns();
  passed_ = 0;
  position_ = Position::kBeforeFirst;
}

void Recordset::OpenDescribed(platform::Command& described, platform::Command& rows) {
  RequireClosed();
  auto ours = RequireConnection(described.active_connection);
  Session& session = ours->GetSession();
  const std::string text = StatementOf(session, described);
  auto description = session.Prepare({text, described.parameters, max_records_, true});
  auto read = session.Prepare({rows.command_text, rows.parameters, max_records_});
  auto client = std::make_unique<ClientCursor>(std::move(read), max_records_, std::move(description));
  ClientCursor* const updatable = client.get();
  Take(std::move(ours), std::move(client));
  updatable_ = updatable;
}

}  // namespace dralo::database
