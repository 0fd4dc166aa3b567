#include "regional/spellings.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "regional/digits.h"
#include "text/ascii.h"
#include "text/white_space.h"

namespace dralo::regional {
namespace {

constexpr std::array<std::string_view, 12> kEnglishMonths = {"January",   "February", "March",    "April",
                                                             "May",       "June",     "July",     "August",
                                                             "September", "October",  "November", "December"};

std::string PlainSpelling(std::string_view text) {
  std::string plain = text::PlainWhiteSpace(text);
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
    const auto is_same = [&text](const Spelling& other) { return text::EqualAscii(other.text, text); };
    if (text.empty() || text::IsDigit(text.front()) || std::any_of(tidy.begin(), tidy.end(), is_same))
      continue;
    tidy.push_back({std::move(text), spelling.number});
  }
  std::stable_sort(tidy.begin(), tidy.end(),
                   [](const Spelling& a, const Spelling& b) { return a.text.size() > b.text.size(); });
  spellings = std::move(tidy);
}

const Spelling* FindSpelling(const std::vector<Spelling>& spellings, std::string_view text) {
  if (StartsWithDigit(text)) return nullptr;
  for (const Spelling& spelling : spellings) {
    const std::size_t size = spelling.text.size();
    if (!text::StartsWithAscii(text, spelling.text)) continue;
    // "tháng 1" is not the start of "tháng 13".
    const bool splits_number =
        text::IsDigit(spelling.text.back()) && text.size() > size && text::IsDigit(text[size]);
    if (!splits_number) return &spelling;
  }
  return nullptr;
}

}  // namespace dralo::regional
