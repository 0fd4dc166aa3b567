#include "regional/boolean_words.h"

#include <array>

namespace dralo::regional {
namespace {

struct LanguageWords {
  std::string_view language;
  BooleanWords words;
};

/// ICU does not have these words.
constexpr auto kLanguages = std::to_array<LanguageWords>({
    {"da", {"Sand", "Falsk"}},
    {"de", {"Wahr", "Falsch"}},
    {"es", {"Verdadero", "Falso"}},
    {"fi", {"Tosi", "Epätosi"}},
    {"fr", {"Vrai", "Faux"}},
    {"it", {"Vero", "Falso"}},
    {"nb", {"Sann", "Usann"}},
    {"nl", {"Waar", "Onwaar"}},
    {"nn", {"Sann", "Usann"}},
    {"no", {"Sann", "Usann"}},
    {"pl", {"Prawda", "Fałsz"}},
    {"pt", {"Verdadeiro", "Falso"}},
    {"sv", {"Sant", "Falskt"}},
});

}  // namespace

BooleanWords BooleanWordsOf(std::string_view language) {
  for (const auto& [known, words] : kLanguages) {
    if (known == language) return words;
  }
  return {};
}

}  // namespace dralo::regional
