#include "database/statement_kind.h"

#include <algorithm>
#include <cstddef>
#include <string>

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

/// Whether databases differ in what begins here, or in where it ends.
bool IsDisputed(std::string_view text) {
  constexpr std::string_view kSigns = "#$[";
  const bool is_line_comment = text.starts_with("--") && (text.size() == 2 || text::IsAsciiSpace(text[2]));
  return kSigns.find(text.front()) != kSigns.npos || (text.starts_with("--") && !is_line_comment) ||
         text.starts_with("/*!") || text.starts_with("/*M!");
}

/// The size of the quoted text or comment at the front; 0 when there is none, npos when it has no end or
/// databases differ in where it ends.
std::size_t SizeOfQuoted(std::string_view text) {
  const char quote = text.front();
  if (quote == '\'' || quote == '"' || quote == '`') {
    const auto end = text.find(quote, 1);
    const bool is_plain = end != text.npos && text.substr(0, end).find('\\') == text.npos;
    return is_plain ? end + 1 : text.npos;
  }
  if (text.starts_with("--")) return std::min(text.find('\n'), text.size());
  if (!text.starts_with("/*")) return 0;
  const auto end = text.find("*/", 2);
  return end == text.npos ? end : end + 2;
}

/// Without quoted texts and comments, as far as databases agree on them. A word too many only makes the
/// statement be treated with more care.
std::string WithoutQuoted(std::string_view text) {
  std::string words;
  while (!text.empty() && !IsDisputed(text)) {
    const std::size_t size = SizeOfQuoted(text);
    if (size == text.npos) break;
    words += size == 0 ? text.front() : ' ';
    text.remove_prefix(std::max<std::size_t>(size, 1));
  }
  return words.append(text);
}

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
constexpr std::string_view kChangesBehindWith[] = {"INSERT", "UPDATE", "DELETE", "MERGE"};
constexpr std::string_view kDefinitions[] = {"CREATE", "ALTER", "DROP", "GRANT", "REVOKE", "COMMENT"};
constexpr std::string_view kBegins[] = {"BEGIN", "START"};
constexpr std::string_view kEnds[] = {"COMMIT", "END", "ROLLBACK", "ABORT"};
constexpr std::string_view kParts[] = {"SAVEPOINT", "RELEASE"};
constexpr std::string_view kSettings[] = {"SET", "PREPARE"};
constexpr std::string_view kBeforeParenthesis[] = {
    "IN",           "VALUES",     "AND",         "OR",        "NOT",
    "EXISTS",       "ANY",        "ALL",         "SOME",      "FROM",
    "JOIN",         "ON",         "USING",       "AS",        "SELECT",
    "WHERE",        "BY",         "CASE",        "WHEN",      "THEN",
    "ELSE",         "UNION",      "EXCEPT",      "INTERSECT", "OVER",
    "FILTER",       "VARCHAR",    "CHAR",        "DECIMAL",   "NUMERIC",
    "TIMESTAMP",    "COUNT",      "SUM",         "MIN",       "MAX",
    "AVG",          "COALESCE",   "NULLIF",      "LOWER",     "UPPER",
    "LENGTH",       "CONVERT",    "SUBSTRING",   "SUBSTR",    "TRIM",
    "CAST",         "CONCAT",     "ROUND",       "ABS",       "REPLACE",
    "EXTRACT",      "YEAR",       "MONTH",       "DAY",       "DATE",
    "NOW",          "ROW_NUMBER", "RANK",        "LEFT",      "RIGHT",
    "IF",           "IFNULL",     "DATE_FORMAT", "TO_CHAR",   "TO_DATE",
    "POSITION",     "DISTINCT",   "GREATEST",    "LEAST",     "STRING_AGG",
    "GROUP_CONCAT", "REPEAT",     "FLOOR",       "CEILING",   "MOD",
    "DATE_TRUNC",   "LIMIT",      "OFFSET",      "HAVING",    "GENERATE_SERIES"};
constexpr std::string_view kTemporary[] = {"TEMP", "TEMPORARY"};

/// Whether a name that is not in the list is followed by "(". The list of columns of an INSERT is no call.
bool CallsFunctions(std::string_view text) {
  bool is_target = false;  // The name of a table behind INTO, or a part of it.
  bool is_behind_dot = false;
  std::string_view word;
  while (!text.empty()) {
    const std::string_view next = FirstWord(text);
    if (!next.empty()) {
      is_target = is_behind_dot ? is_target : text::EqualAscii(word, "INTO");
      is_behind_dot = false;
      word = next;
    } else if (text.front() == '(') {
      if (!word.empty() && !is_target && !IsAny(word, kBeforeParenthesis)) return true;
    } else if (text.starts_with(":=")) {
      return true;
    } else if (text.front() != '"' && text.front() != '`' && !text::IsAsciiSpace(text.front())) {
      is_behind_dot = text.front() == '.';
      word = {};
    }
    text.remove_prefix(std::max<std::size_t>(next.size(), 1));
  }
  return false;
}

/// The word REPLACE alone may be the function.
bool HasChangeBehindWith(std::string_view text) {
  return HasAny(text, kChangesBehindWith) || (HasWord(text, "REPLACE") && HasWord(text, "INTO"));
}

StatementKind KindOfStart(std::string_view text) {
  const std::string_view first = FirstWord(text);
  const bool is_with = text::EqualAscii(first, "WITH");
  if (IsAny(first, kSelects) || (is_with && !HasChangeBehindWith(text))) {
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
  text = FromFirstWord(text);
  StatementKind kind = KindOfStart(WithoutQuoted(text));
  const std::string_view first = FirstWord(text);
  kind.controls_transaction =
      IsAny(first, kBegins) || IsAny(first, kEnds) || IsAny(first, kParts) || IsAny(first, kSettings);
  kind.calls_functions = !IsAny(first, kDefinitions) && CallsFunctions(text);
  return kind;
}

}  // namespace dralo::database
