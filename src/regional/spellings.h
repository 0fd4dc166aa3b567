#pragma once

#include <string_view>
#include <vector>

#include "regional/locale_facts.h"

namespace dralo::regional {

void AddEnglishMonths(std::vector<Spelling>& months);
void AddEnglishDayHalves(std::vector<Spelling>& halves);

/// Brings `spellings` in the form that they are looked up in: blanks plain, no full stop at the end, longest
/// first, of equal texts the first alone. Drops what begins with a digit ("5月"), because there the number is
/// read.
void TidySpellings(std::vector<Spelling>& spellings);

/// The longest of `spellings` that `text` starts with, or nullptr.
const Spelling* FindSpelling(const std::vector<Spelling>& spellings, std::string_view text);

}  // namespace dralo::regional
