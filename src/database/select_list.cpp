#include "database/select_list.h"

#include <algorithm>
#include <cstddef>

#include "database/outer_tokens.h"
#include "text/ascii.h"
#include "text/white_space.h"

namespace dralo::database {

namespace {

char ClosingQuote(char c) { return c == '"' || c == '\'' || c == '`' ? c : c == '[' ? ']' : '\0'; }

/// Takes a word, a quoted text, or a single character; empty for a blank. Words in comments count too, which
/// is only more careful.
std::string_view TakeToken(std::string_view& rest) {
  if (text::IsAsciiSpace(rest.front())) {
    rest.remove_prefix(1);
    return {};
  }
  std::size_t size = 1;
  if (const char closing = ClosingQuote(rest.front()); closing != '\0') {
    do {
      size = rest.find(closing, size);
      size = size == rest.npos ? rest.size() : size + 1;
    } while (size < rest.size() && rest[size] == closing && ++size < rest.size());
  } else {
    while (size < rest.size() && IsOfName(rest[0]) && IsOfName(rest[size])) ++size;
  }
  const auto token = rest.substr(0, size);
  rest.remove_prefix(size);
  return token;
}

std::string Unquoted(std::string_view token) {
  const char closing = ClosingQuote(token.front());
  return closing == '\0' || token.size() < 2 ? std::string(token) : NameInQuotes(token, closing);
}

bool IsWord(std::string_view token, std::string_view word) { return text::EqualAscii(token, word); }

constexpr std::string_view kBehindTables[] = {"WHERE", "GROUP",  "HAVING", "WINDOW", "ORDER",
                                              "LIMIT", "OFFSET", "FETCH",  "FOR",    "SELECT"};

/// Walks through the places of a query that name tables whose rows it yields: after FROM and JOIN, also in
/// queries that stand there or in a WITH; not in queries within conditions and among the fields.
class TablePlaces {
 public:
  /// The names of the tables, without their schemas, as often as they occur.
  std::vector<std::string> NamesIn(std::string_view query) {
    while (!query.empty()) {
      if (const auto token = TakeToken(query); !token.empty()) Take(token);
    }
    return std::move(names_);
  }

 private:
  struct Level {
    bool yields_rows = true;
    bool is_in_from = false;
  };

  void Take(std::string_view token) {
    if (token == "(") {
      Open();
    } else if (token == ")") {
      if (levels_.size() > 1) levels_.pop_back();
      is_expected_ = false;
    } else if (levels_.back().yields_rows) {
      TakeHere(token);
    }
    before_ = token;
  }

  void Open() {
    const bool is_definition = IsWord(before_, "AS") || IsWord(before_, "MATERIALIZED");
    const bool is_table = is_expected_ || before_.empty() || before_ == "(" || is_definition;
    levels_.push_back({levels_.back().yields_rows && is_table, is_expected_});
  }

  void TakeHere(std::string_view token) {
    Level& level = levels_.back();
    const auto is_token = [&](std::string_view word) { return IsWord(token, word); };
    if (is_token("FROM") && !IsWord(before_, "DISTINCT")) {
      level.is_in_from = is_expected_ = true;
    } else if (std::ranges::any_of(kBehindTables, is_token)) {
      level.is_in_from = is_expected_ = false;
    } else if (is_token("JOIN") || token == ",") {
      is_expected_ = level.is_in_from;
    } else if (token == "." && was_name_) {
      names_.pop_back();
      is_expected_ = true;
    } else if (is_expected_ && !is_token("ONLY") && !is_token("LATERAL")) {
      names_.push_back(Unquoted(token));
      is_expected_ = false;
      was_name_ = true;
      return;
    }
    was_name_ = false;
  }

  std::vector<std::string> names_;
  std::vector<Level> levels_{1};
  std::string_view before_;
  bool is_expected_ = false;  ///< The next token is a table.
  bool was_name_ = false;     ///< The last token was a name.
};

bool IsPlain(const std::vector<std::string_view>& item) {
  for (std::size_t i = 0; i < item.size(); ++i) {
    if ((item[i] == ".") != (i % 2 == 1)) return false;
  }
  return true;
}

}  // namespace

std::vector<std::string> GivenNames(std::string_view query) {
  std::vector<std::string> names;
  std::vector<std::string_view> item;
  const auto end_item = [&] {
    if (!item.empty() && !IsPlain(item)) names.push_back(Unquoted(item.back()));
    item.clear();
  };
  for (const auto token : OuterTokens(query, TakeToken)) {
    if (IsWord(token, "FROM")) break;
    if (token == ",") {
      end_item();
    } else if (!IsWord(token, "SELECT") && !IsWord(token, "DISTINCT") && !IsWord(token, "ALL")) {
      item.push_back(token);
    }
  }
  end_item();
  return names;
}

bool NamesTwice(std::string_view query, std::string_view table) {
  const std::vector<std::string> names = TablePlaces().NamesIn(query);
  const auto count = [&](std::string_view name) {
    return std::ranges::count_if(names, [&](const std::string& one) { return text::EqualAscii(one, name); });
  };
  if (count(table) > 1) return true;
  // The query may read what a WITH has named, and so the table behind it, more than once.
  return text::ContainsAscii(query, "WITH") &&
         std::ranges::any_of(names, [&](const std::string& name) { return count(name) > 1; });
}

}  // namespace dralo::database
