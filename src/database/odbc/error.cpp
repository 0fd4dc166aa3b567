#include "database/odbc/error.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <array>

#include "database/message_line.h"
#include "database/odbc/wide_text.h"
#include "text/ascii.h"

namespace dralo::database::odbc {

namespace {

using platform::Error;

constexpr std::string_view kNoise[] = {"Error while executing the query", "ERROR: ", "FATAL: "};

/// Without the names of the layers in brackets at its front, and on one line.
std::string Cleaned(std::string_view text) {
  while (text.starts_with('[') && text.find(']') != text.npos) text.remove_prefix(text.find(']') + 1);
  std::string line = MessageLine(text, kNoise);
  while (!line.empty() && (line.back() == ';' || line.back() == '.' || line.back() == ' ')) line.pop_back();
  return line;
}

struct Record {
  std::string sqlstate;
  SQLINTEGER native = 0;
  std::string text;
};

bool ReadRecord(SQLSMALLINT handle_type, SQLHANDLE handle, SQLSMALLINT number, Record& record) {
  std::array<SQLWCHAR, 6> state{};
  std::array<SQLWCHAR, 4096> text{};
  SQLSMALLINT size = 0;
  const auto room = static_cast<SQLSMALLINT>(text.size());
  const SQLRETURN code =
      SQLGetDiagRecW(handle_type, handle, number, state.data(), &record.native, text.data(), room, &size);
  if (!SQL_SUCCEEDED(code)) return false;
  const auto units = static_cast<std::size_t>(size < room ? size : room - 1);
  record.text = Cleaned(ToNarrow({reinterpret_cast<const char16_t*>(text.data()), units}));
  record.sqlstate = ToNarrow({reinterpret_cast<const char16_t*>(state.data()), 5});
  return true;
}

}  // namespace

/// A secret is replaced only as a whole word: a short one is in other words by chance.
std::string WithoutSecrets(std::string message, std::span<const std::string> secrets) {
  const auto is_part = [&](std::size_t at) {
    return at < message.size() && text::IsLetterOrDigit(message[at]);
  };
  for (const std::string& secret : secrets) {
    for (auto at = message.find(secret); at != message.npos; at = message.find(secret, at + 1)) {
      const bool is_word = (at == 0 || !is_part(at - 1)) && !is_part(at + secret.size());
      if (is_word) message.replace(at, secret.size(), "***");
    }
  }
  return message;
}

Error MakeError(SQLSMALLINT handle_type, SQLHANDLE handle, std::string_view statement,
                std::span<const std::string> secrets) {
  std::string message;
  Record first;
  Record record;
  for (SQLSMALLINT number = 1; ReadRecord(handle_type, handle, number, record); ++number) {
    if (number == 1) first = record;
    if (first.native == 0 && record.native != 0) first.native = record.native;
    if (record.text.empty() || message.find(record.text) != message.npos) continue;
    message += message.empty() ? "" : "; ";
    message += record.text;
  }
  if (message.empty()) message = "The database driver failed without saying why";
  if (!first.sqlstate.empty()) message += " (SQLSTATE " + first.sqlstate + ")";
  return Error(WithoutSecrets(std::move(message), secrets), first.native, first.sqlstate,
               std::string(statement));
}

}  // namespace dralo::database::odbc
