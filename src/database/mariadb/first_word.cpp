#include "database/mariadb/first_word.h"

#include <algorithm>

#include "database/statement_text.h"

namespace dralo::database::mariadb {

std::string_view FromFirstWord(std::string_view text) {
  text = WithoutFront(text, '(');
  while (text.starts_with('#')) {
    text.remove_prefix(std::min(text.find('\n'), text.size()));
    text = WithoutFront(text, '(');
  }
  return text;
}

}  // namespace dralo::database::mariadb
