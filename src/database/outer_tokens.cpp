#include "database/outer_tokens.h"

namespace dralo::database {

std::string NameInQuotes(std::string_view token, char closing) {
  std::string name;
  for (std::size_t i = 1; i + 1 < token.size(); ++i) {
    name += token[i];
    if (token[i] == closing) ++i;
  }
  return name;
}

std::vector<std::string_view> OuterTokens(std::string_view text,
                                          const std::function<std::string_view(std::string_view&)>& take) {
  std::vector<std::string_view> tokens;
  int depth = 0;
  while (!text.empty()) {
    const std::string_view token = take(text);
    if (token.empty()) continue;
    if (token == ")") --depth;
    if (depth == 0 && token != ")") tokens.push_back(token);
    if (token == "(") ++depth;
  }
  return tokens;
}

}  // namespace dralo::database
