#include "regional/spellings.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "regional/blanks.h"
#include "regional/digits.h"

namespace dralo::regional {
namespace {

constexpr std::array<std::string_view, 12> kEnglishMonths = {"January",   "February", "March",    "April",
                                                             "May",       "June",     "July",     "August",
                                                             "September", "October",  "November", "December"};

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string PlainSpelling(std::string_view text) {
  std::string plain = PlainBlanks(text);
  while (plain.ends_with('.')) plain.pop_back();
  return plain;
}

}  // namespace

void AddEnglishMonths(std::vector<Spelling>& months) {
  int number = 0;
  for (const std::string_view name : kEnglishMonths) {
    months.push_back({std::string(name), ++number});
    months.push_back({std::string(name.substr(0, 3)), number});
  }
  months.push_back({"Sept", 9});
}

void AddEnglishDayHalves(std::vector<Spelling>& halves) {
  halves.insert(halves.end(), {{"AM", 0}, {"A.M", 0}, {"PM", 1}, {"P.M", 1}});
}

void TidySpellings(std::vector<Spelling>& spellings) {
  std::vector<Spelling> tidy;
  for (const Spelling& spelling : spellings) {
    std::string text = PlainSpelling(spelling.text);
    const auto is_same = [&text](const Spelling& other) {
      return other.text.size() == text.size() && StartsWith(other.text, text);
    };
    if (text.empty() || IsDigit(text.front()) || std::any_of(tidy.begin(), tidy.end(), is_same)) continue;
    tidy.push_back({std::move(text), spelling.number});
  }
  std::stable_sort(tidy.begin(), tidy.end(),
                   [](const Spelling& a, const Spelling& b) { return a.text.size() > b.text.size(); });
  spellings = std::move(tidy);
}

bool StartsWith(std::string_view text, std::string_view start) {
  return text.size() >= start.size() &&
         std::equal(start.begin(), start.end(), text.begin(),
                    [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

const Spelling* FindSpelling(const std::vector<Spelling>& spellings, std::string_view text) {
  if (StartsWithDigit(text)) return nullptr;
  for (const Spelling& spelling : spellings) {
    const std::size_t size = spelling.text.size();
    if (!StartsWith(text, spelling.text)) continue;
    // "tháng 1" is not the start of "tháng 13".
    const bool splits_number = IsDigit(spelling.text.back()) && text.size() > size && IsDigit(text[size]);
    if (!splits_number) return &spelling;
  }
  return nullptr;
}

}  // namespace dralo::regional
