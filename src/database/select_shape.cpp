#include "database/select_shape.h"

#include <algorithm>
#include <cstddef>
#include <span>

#include "database/outer_tokens.h"
#include "text/ascii.h"
#include "text/white_space.h"

namespace dralo::database {

namespace {

using Tokens = std::vector<std::string_view>;

constexpr std::string_view kOtherQueries[] = {"UNION", "EXCEPT", "INTERSECT", "WITH", "VALUES", "TABLE"};
constexpr std::string_view kRowsOfTheirOwn[] = {"DISTINCT", "DISTINCTROW", "GROUP", "HAVING"};
constexpr std::string_view kBehindFrom[] = {"WHERE", "GROUP",  "HAVING", "ORDER",     "LIMIT", "WINDOW",
                                            "FOR",   "OFFSET", "FETCH",  "PROCEDURE", "INTO",  "LOCK"};
constexpr std::string_view kBehindOrder[] = {"LIMIT", "OFFSET", "FETCH", "FOR", "PROCEDURE", "INTO", "LOCK"};
constexpr std::string_view kBetweenTables[] = {",", "JOIN", "STRAIGHT_JOIN"};
constexpr std::string_view kBehindTable[] = {"ON",    "USING", "USE",   "IGNORE",  "FORCE",     "LEFT",
                                             "RIGHT", "INNER", "CROSS", "NATURAL", "PARTITION", "OUTER"};

template <std::size_t kCount>
bool IsOneOf(std::string_view token, const std::string_view (&words)[kCount]) {
  return std::ranges::any_of(words, [&](std::string_view word) { return text::EqualAscii(token, word); });
}

bool IsQuote(char c) { return c == '"' || c == '\'' || c == '`'; }

/// How many bytes the quoted text at the front takes. Except in names, a backslash protects the character
/// after it.
std::size_t QuotedSize(std::string_view text) {
  const char quote = text.front();
  for (std::size_t i = 1; i < text.size(); ++i) {
    const bool is_quote = text[i] == quote;
    const bool keeps_next =
        is_quote ? text.substr(i + 1, 1) == text.substr(i, 1) : text[i] == '\\' && quote != '`';
    if (is_quote && !keeps_next) return i + 1;
    if (keeps_next) ++i;
  }
  return text.size();
}

/// How many bytes the comment at the front takes; 0 when there is none.
std::size_t CommentSize(std::string_view text) {
  const bool is_line =
      text.starts_with('#') || (text.starts_with("--") && (text.size() == 2 || text::IsAsciiSpace(text[2])));
  if (!is_line && !text.starts_with("/*")) return 0;
  const auto end = is_line ? text.find('\n') : text.find("*/", 2);
  return end == text.npos ? text.size() : end + (is_line ? 1 : 2);
}

std::size_t TokenSize(std::string_view text) {
  if (IsQuote(text.front())) return QuotedSize(text);
  const auto end = std::ranges::find_if_not(text, IsOfName);
  return std::max<std::size_t>(static_cast<std::size_t>(end - text.begin()), 1);
}

/// Empty when a blank or a comment stands at the front.
std::string_view TakePart(std::string_view& text) {
  const std::size_t passed = text::IsAsciiSpace(text.front()) ? 1 : CommentSize(text);
  const std::size_t size = passed > 0 ? passed : TokenSize(text);
  const std::string_view token = text.substr(0, passed > 0 ? 0 : size);
  text.remove_prefix(size);
  return token;
}

std::string NameIn(std::string_view token) {
  const bool is_quoted = IsQuote(token.front()) && token.size() > 1;
  return is_quoted ? NameInQuotes(token, token.front()) : std::string(token);
}

bool IsName(std::string_view token) {
  return token.front() == '`' || token.front() == '"' || IsOfName(token.front());
}

/// From the first to the last of tokens that stand one behind the other.
std::string_view Written(std::string_view first, std::string_view last) {
  return {first.data(), static_cast<std::size_t>(last.data() + last.size() - first.data())};
}

/// The names of "[database.]table", which are the first `count` tokens.
NamedTable NamesOf(std::span<const std::string_view> tokens, std::size_t count) {
  NamedTable named;
  if (count > 1) named.database = NameIn(tokens[0]);
  named.table = NameIn(tokens[count - 1]);
  named.written = Written(tokens[0], tokens[count - 1]);
  named.alias = named.table;
  named.written_alias = tokens[count - 1];
  return named;
}

/// "[database.]table [[AS] alias]" and what may follow it.
NamedTable TableOf(std::span<const std::string_view> tokens) {
  if (tokens.empty() || !IsName(tokens[0])) return {};
  std::size_t next = tokens.size() > 2 && tokens[1] == "." ? 3 : 1;
  NamedTable named = NamesOf(tokens, next);
  const bool has_as = next < tokens.size() && text::EqualAscii(tokens[next], "AS");
  if (has_as) ++next;
  if (next == tokens.size()) return named;
  if (tokens[next] == "(" || tokens[next] == ".") return {};  // A function, or a name of three parts.
  if (!has_as && IsOneOf(tokens[next], kBehindTable)) return named;
  named.alias = NameIn(tokens[next]);
  named.written_alias = tokens[next];
  const bool renames_columns = next + 1 < tokens.size() && tokens[next + 1] == "(";
  return renames_columns ? NamedTable() : named;
}

std::vector<NamedTable> TablesOf(std::span<const std::string_view> tokens) {
  std::vector<NamedTable> tables;
  while (!tokens.empty()) {
    const auto end = std::ranges::find_if(tokens, [](auto token) { return IsOneOf(token, kBetweenTables); });
    const auto size = static_cast<std::size_t>(end - tokens.begin());
    tables.push_back(TableOf(tokens.first(size)));
    tokens = tokens.subspan(std::min(size + 1, tokens.size()));
  }
  return tables;
}

/// Reads from the last "ORDER BY" to the end, if nothing else follows it.
void ReadOrder(const Tokens& tokens, SelectShape& shape) {
  for (std::size_t i = tokens.size(); i-- > 1;) {
    if (IsOneOf(tokens[i], kBehindOrder)) return;
    if (!text::EqualAscii(tokens[i - 1], "ORDER") || !text::EqualAscii(tokens[i], "BY")) continue;
    shape.ends_with_order = i + 1 < tokens.size() && tokens.back() != ",";
    shape.is_descending = text::EqualAscii(tokens.back(), "DESC");
    return;
  }
}

}  // namespace

SelectShape ShapeOf(std::string_view query) {
  SelectShape shape;
  Tokens tokens = OuterTokens(query, TakePart);
  while (!tokens.empty() && tokens.back() == ";") tokens.pop_back();
  const auto is = [](std::string_view word) {
    return [word](std::string_view token) { return text::EqualAscii(token, word); };
  };
  const auto from = std::ranges::find_if(tokens, is("FROM"));
  shape.is_simple = from != tokens.end() && is("SELECT")(tokens.front()) &&
                    std::ranges::none_of(tokens, [](auto token) { return IsOneOf(token, kOtherQueries); });
  if (!shape.is_simple) return shape;
  shape.has_rows_of_tables =
      std::ranges::none_of(tokens, [](auto token) { return IsOneOf(token, kRowsOfTheirOwn); });
  shape.has_windows = std::ranges::any_of(tokens, is("OVER"));
  const auto end = std::find_if(from, tokens.end(), [](auto token) { return IsOneOf(token, kBehindFrom); });
  shape.tables = TablesOf(std::span(from + 1, end));
  shape.ends_with_tables = end == tokens.end();
  ReadOrder(tokens, shape);
  return shape;
}

}  // namespace dralo::database
