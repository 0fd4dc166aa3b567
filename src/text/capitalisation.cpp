#include "text/capitalisation.h"

#include <cstddef>

#include "text/characters.h"
#include "text/letter_case.h"
#include "text/list.h"

namespace dralo::text {
namespace {

bool HasSmallLetters(std::string_view text) { return ToUpper(text) != text; }

std::string WithCapital(std::string_view word) {
  const std::size_t first = BytesOfCharacters(word, 1);
  return ToUpper(word.substr(0, first)).append(word.substr(first));
}

}  // namespace

std::string CapitaliseFirst(std::string_view text) {
  return HasSmallLetters(text) ? std::string(text) : WithCapital(ToLower(text));
}

std::string CapitaliseWords(std::string_view text) {
  if (HasSmallLetters(text)) return std::string(text);
  std::string result;
  for (const std::string& word : Split(ToLower(text), " ")) result.append(" ").append(WithCapital(word));
  return result;
}

}  // namespace dralo::text
