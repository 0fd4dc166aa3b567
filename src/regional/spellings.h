#pragma once

#include <string_view>
#include <vector>

#include "regional/locale_facts.h"

namespace dralo::regional {

void AddEnglishMonths(std::vector<Spelling>& months);
void AddEnglishDayHalves(std::vector<Spelling>& halves);

/// Prepares `spellings` for FindSpelling(): blanks plain, no full stop at the end, longest first, of equal
/// texts only the first. Drops those that begin with a digit ("5월"), because the number is read there.
void TidySpellings(std::vector<Spelling>& spellings);

/// The longest of `spellings` with which `text` begins, or nullptr.
const Spelling* FindSpelling(const std::vector<Spelling>& spellings, std::string_view text);

}  // namespace dralo::regional
