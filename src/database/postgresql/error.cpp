#include "database/postgresql/error.h"

#include "database/message_line.h"

namespace dralo::database::postgresql {

namespace {

using platform::Error;

constexpr std::string_view kNoise[] = {"FATAL: ", "ERROR: "};

Error WithState(std::string message, const std::string& state, std::string_view statement) {
  message += " (SQLSTATE " + state + ")";
  return Error(message, PGRES_FATAL_ERROR, state, std::string(statement));
}

}  // namespace

std::string OneLine(std::string_view message) { return MessageLine(message, kNoise); }

Error ErrorOf(const PGresult* result, std::string_view statement) {
  const Libpq& libpq = Libpq::Get();
  const char* const state = libpq.PQresultErrorField(result, PG_DIAG_SQLSTATE);
  const char* const message = libpq.PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY);
  if (state == nullptr || message == nullptr) {
    return NoConnection(libpq.PQresultErrorMessage(result), statement);
  }
  std::string text = OneLine(message);
  if (const char* const detail = libpq.PQresultErrorField(result, PG_DIAG_MESSAGE_DETAIL)) {
    text += " DETAIL: " + OneLine(detail);
    if (text.ends_with('.')) text.pop_back();
  }
  return WithState(std::move(text), state, statement);
}

Error NoAnswer(std::string_view statement) {
  return WithState("The database has not answered in time; the connection is given up", "HYT00", statement);
}

Error NoConnection(std::string_view reason, std::string_view statement) {
  const std::string line = OneLine(reason);
  return WithState(line.empty() ? "The connection to the database is closed" : line, "08006", statement);
}

}  // namespace dralo::database::postgresql
