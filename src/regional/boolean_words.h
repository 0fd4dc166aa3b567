#pragma once

#include <string_view>

namespace dralo::regional {

/// The words for true and false.
struct BooleanWords {
  std::string_view true_word = "True";
  std::string_view false_word = "False";
};

/// The words of the language, such as "de"; the English ones for languages without an entry.
BooleanWords BooleanWordsOf(std::string_view language);

}  // namespace dralo::regional
