#include "database/statement_kind.h"

#include <algorithm>

#include "database/statement_text.h"
#include "text/ascii.h"
#include "text/white_space.h"

namespace dralo::database {

namespace {

bool IsOfAWord(char c) {
  return text::IsLetterOrDigit(c) || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

std::string_view FirstWord(std::string_view text) {
  const auto end = std::ranges::find_if_not(text, IsOfAWord);
  return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

/// Also inside of quotes and comments: a word too many only makes the statement be treated with more care.
bool HasWord(std::string_view text, std::string_view word) {
  while (!text.empty()) {
    const std::string_view next = FirstWord(text);
    if (text::EqualAscii(next, word)) return true;
    text.remove_prefix(std::max<std::size_t>(next.size(), 1));
  }
  return false;
}

template <std::size_t kCount>
bool HasAny(std::string_view text, const std::string_view (&words)[kCount]) {
  return std::ranges::any_of(words, [&](std::string_view word) { return HasWord(text, word); });
}

template <std::size_t kCount>
bool IsAny(std::string_view first, const std::string_view (&words)[kCount]) {
  return std::ranges::any_of(words, [&](std::string_view word) { return text::EqualAscii(first, word); });
}

constexpr std::string_view kSelects[] = {"SELECT", "VALUES", "TABLE"};
constexpr std::string_view kShows[] = {"SHOW", "EXPLAIN", "DESCRIBE", "DESC", "PRAGMA"};
constexpr std::string_view kChanges[] = {"INSERT", "UPDATE", "DELETE", "MERGE", "REPLACE", "TRUNCATE"};
constexpr std::string_view kDefinitions[] = {"CREATE", "ALTER", "DROP", "GRANT", "REVOKE", "COMMENT"};
constexpr std::string_view kBegins[] = {"BEGIN", "START"};
constexpr std::string_view kEnds[] = {"COMMIT", "END", "ROLLBACK", "ABORT"};
constexpr std::string_view kParts[] = {"SAVEPOINT", "RELEASE"};
constexpr std::string_view kSettings[] = {"SET", "PREPARE"};
constexpr std::string_view kBeforeParenthesis[] = {
    "IN",           "VALUES",   "AND",       "OR",       "NOT",      "EXISTS",     "ANY",
    "ALL",          "SOME",     "FROM",      "JOIN",     "ON",       "USING",      "AS",
    "SELECT",       "WHERE",    "BY",        "CASE",     "WHEN",     "THEN",       "ELSE",
    "UNION",        "EXCEPT",   "INTERSECT", "OVER",     "FILTER",   "VARCHAR",    "CHAR",
    "DECIMAL",      "NUMERIC",  "TIMESTAMP", "COUNT",    "SUM",      "MIN",        "MAX",
    "AVG",          "COALESCE", "NULLIF",    "LOWER",    "UPPER",    "LENGTH",     "CONVERT",
    "SUBSTRING",    "SUBSTR",   "TRIM",      "CAST",     "CONCAT",   "ROUND",      "ABS",
    "REPLACE",      "EXTRACT",  "YEAR",      "MONTH",    "DAY",      "DATE",       "NOW",
    "ROW_NUMBER",   "RANK",     "LEFT",      "RIGHT",    "IF",       "IFNULL",     "DATE_FORMAT",
    "TO_CHAR",      "TO_DATE",  "POSITION",  "DISTINCT", "GREATEST", "LEAST",      "STRING_AGG",
    "GROUP_CONCAT", "REPEAT",   "FLOOR",     "CEILING",  "MOD",      "DATE_TRUNC", "LIMIT",
    "OFFSET",       "HAVING"};
constexpr std::string_view kTemporary[] = {"TEMP", "TEMPORARY"};

/// Whether a name that is not in the list stands in front of a "(". The list of columns of an INSERT is no
/// call.
bool CallsFunctions(std::string_view text) {
  std::string_view before;
  std::string_view word;
  while (!text.empty()) {
    const std::string_view next = FirstWord(text);
    if (!next.empty()) {
      before = word;
      word = next;
    } else if (text.front() == '(') {
      const bool is_call =
          !word.empty() && !text::EqualAscii(before, "INTO") && !IsAny(word, kBeforeParenthesis);
      if (is_call) return true;
    } else if (text.starts_with(":=")) {
      return true;
    } else if (text.front() != '"' && text.front() != '`' && !text::IsAsciiSpace(text.front())) {
      word = {};
    }
    text.remove_prefix(std::max<std::size_t>(next.size(), 1));
  }
  return false;
}

StatementKind KindOfStart(std::string_view text) {
  const std::string_view first = FirstWord(text);
  const bool is_with = text::EqualAscii(first, "WITH");
  if (IsAny(first, kSelects) || (is_with && !HasAny(text, kChanges))) {
    const bool has_target = HasWord(text, "INTO");
    return {.is_query = true, .is_select = !has_target, .defines = has_target, .leaves_traces = has_target};
  }
  if (IsAny(first, kShows)) return {.is_query = true, .leaves_traces = text::EqualAscii(first, "PRAGMA")};
  if (IsAny(first, kChanges) || is_with || IsAny(first, kParts)) return {};
  if (IsAny(first, kDefinitions)) return {.defines = true, .leaves_traces = HasAny(text, kTemporary)};
  if (IsAny(first, kBegins)) return {.begins_transaction = true};
  if (IsAny(first, kEnds)) return {.ends_transaction = !HasWord(text, "TO"), .defines = true};
  return {.defines = true, .leaves_traces = true};
}

}  // namespace

StatementKind KindOf(std::string_view text) {
  text = WithoutFront(text, '(');
  StatementKind kind = KindOfStart(text);
  const std::string_view first = FirstWord(text);
  kind.controls_transaction =
      IsAny(first, kBegins) || IsAny(first, kEnds) || IsAny(first, kParts) || IsAny(first, kSettings);
  kind.calls_functions = !IsAny(first, kDefinitions) && CallsFunctions(text);
  return kind;
}

}  // namespace dralo::database
