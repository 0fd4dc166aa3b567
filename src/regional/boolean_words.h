#pragma once

#include <string_view>

namespace dralo::regional {

/// The words for true and false.
struct BooleanWords {
  std::string_view true_word = "True";
  std::string_view false_word = "False";
};

/// Those of the language, such as "de"; the English ones for languages that have none here.
BooleanWords BooleanWordsOf(std::string_view language);

}  // namespace dralo::regional
