#include "database/source_text.h"

#include <algorithm>
#include <array>

#include "dralo/error.h"
#include "text/ascii.h"
#include "text/white_space.h"

namespace dralo::database {

namespace {

/// Statements of a single word.
constexpr std::array<std::string_view, 8> kStatementWords = {"ANALYZE", "BEGIN",    "COMMIT", "END",
                                                             "REINDEX", "ROLLBACK", "VACUUM", "PRAGMA"};

constexpr bool IsNameCharacter(char c) {
  return text::IsLetterOrDigit(c) || c == '_' || c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

bool IsBareName(std::string_view text) {
  return !text.empty() && !text::IsDigit(text.front()) && std::ranges::all_of(text, IsNameCharacter) &&
         std::ranges::none_of(kStatementWords,
                              [&](std::string_view word) { return text::EqualAscii(text, word); });
}

}  // namespace

std::string SelectAll(const Session& session, std::string_view table) {
  return "SELECT * FROM " + session.QuoteName(table);
}

void RequireKnown(int options) {
  if (options == kStatementOrTable || options == kStatement) return;
  throw platform::Error(
      "The options must be -1 or 1; a table or a stored procedure is run by a command of that type");
}

std::string StatementOf(const Session& session, std::string_view source, int options) {
  RequireKnown(options);
  if (options == kStatement) return std::string(source);
  const auto name = text::TrimAsciiSpace(source);
  const auto dot = name.find('.');
  if (dot != name.npos && IsBareName(name.substr(0, dot)) && IsBareName(name.substr(dot + 1))) {
    return "SELECT * FROM " + session.QuoteName(name.substr(0, dot)) + "." +
           session.QuoteName(name.substr(dot + 1));
  }
  return IsBareName(name) ? SelectAll(session, name) : std::string(source);
}

std::string StatementOf(const Session& session, const platform::Command& command) {
  switch (command.command_type) {
    case platform::CommandType::kTable:
      return SelectAll(session, text::TrimAsciiSpace(command.command_text));
    case platform::CommandType::kStoredProcedure:
      return session.ProcedureCall(text::TrimAsciiSpace(command.command_text), command.parameters.size());
    case platform::CommandType::kText:
      return command.command_text;
    default:
      return StatementOf(session, std::string_view(command.command_text));
  }
}

}  // namespace dralo::database
