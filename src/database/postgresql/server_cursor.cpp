#include "database/postgresql/server_cursor.h"

#include <utility>

#include "database/postgresql/session.h"

namespace dralo::database::postgresql {

namespace {

constexpr int kRowsAtOnce = 256;

Statement Plain(const Statement& query, std::string sql) {
  Statement statement;
  statement.text = query.text;
  statement.numbered = std::move(sql);
  return statement;
}

}  // namespace

ServerCursor::ServerCursor(Session& session, const Statement& query, const Parameters& parameters,
                           Execution::Opening opening)
    : session_(session),
      connection_(session.GetLink().Number()),
      name_(session.NewCursorName()),
      fetching_(Plain(query, "FETCH " + std::to_string(kRowsAtOnce) + " FROM " + name_)) {
  Statement declaring = Plain(query, "DECLARE " + name_ + " NO SCROLL CURSOR FOR " + query.ToSend());
  const Execution::Leader declaration{declaring, parameters};
  first_ = Fetch(opening, &declaration);
}

/// The server must not take the tables for ones in use when it has sent the last row.
Result ServerCursor::Fetch(Execution::Opening opening, const Execution::Leader* declaration) {
  Execution execution(session_.GetLink(), fetching_, Parameters(), Execution::Rows::kAll, opening,
                      declaration);
  if (declaration != nullptr) execution.Lead(*declaration);
  execution.Description();
  Result rows = execution.All();
  if (Libpq::Get().PQntuples(rows.get()) < kRowsAtOnce) Close();
  return rows;
}

Result ServerCursor::Next() {
  if (!is_open_) return nullptr;
  session_.GetLink().Begin();
  return Fetch(session_.TakeOpening({}), nullptr);
}

void ServerCursor::Close() noexcept {
  Link& link = session_.GetLink();
  const bool is_there = std::exchange(is_open_, false) && link.Number() == connection_;
  if (!is_there || link.Transaction() != PQTRANS_INTRANS) return;
  try {
    link.Run(("CLOSE " + name_).c_str());
  } catch (const std::exception&) {
    // It ends with the transaction.
  }
}

}  // namespace dralo::database::postgresql
