#include "regional/date_recognizer.h"

#include <algorithm>

#include "regional/digits.h"
#include "regional/spellings.h"
#include "text/ascii.h"
#include "text/white_space.h"

namespace dralo::regional {
namespace {

using platform::DateTime;

/// Well above the longest date that any locale has, so that hostile texts cost little.
constexpr std::size_t kMaxTextSize = 200;

bool IsMark(char c) { return c == '.' || c == '/' || c == '-' || c == ','; }

bool IsName(const DatePart& part) { return part.digits == 0; }

}  // namespace

DateRecognizer::DateRecognizer(const LocaleFacts& facts)
    : months_(facts.months), date_words_(facts.date_words), order_(facts.date_order), time_(facts) {
  std::stable_sort(date_words_.begin(), date_words_.end(),
                   [](const std::string& a, const std::string& b) { return a.size() > b.size(); });
}

std::optional<DateTime> DateRecognizer::Recognize(std::string_view text) const {
  text = text::TrimWhiteSpace(text);
  if (text.size() > kMaxTextSize) return std::nullopt;
  const std::string plain = text::PlainWhiteSpace(text);
  if (const auto time = RecognizeFromDate(plain)) return time;
  return RecognizeTimeAlone(plain);
}

std::optional<DateTime> DateRecognizer::RecognizeFromDate(std::string_view text) const {
  Spelled date;
  if (!TakeSpelled(text, date)) return std::nullopt;
  std::optional<DateTime> time = Day(date);
  if (!time) return std::nullopt;

  const Gap& end = date.gaps[2];
  if (end.mark == '/' || end.mark == '-') return std::nullopt;
  if (text.empty()) return end.mark == ',' ? std::nullopt : time;

  const bool is_iso = IsIsoDate(date);
  const bool has_t = is_iso && end.mark == '\0' && !end.has_blank && text::StartsWithAscii(text, "T");
  if (has_t) text.remove_prefix(1);
  if (!has_t && !end.has_blank && !end.has_word && end.mark != ',') return std::nullopt;
  if (!time_.TakeAfterDate(text, *time)) return std::nullopt;
  if (is_iso && text::StartsWithAscii(text, "Z")) text.remove_prefix(1);
  return text.empty() ? time : std::nullopt;
}

std::optional<DateTime> DateRecognizer::RecognizeTimeAlone(std::string_view text) const {
  DateTime time;
  return time_.Take(text, time) && text.empty() ? std::optional(time) : std::nullopt;
}

std::optional<DateTime> DateRecognizer::Day(const Spelled& date) const {
  const auto names = std::count_if(date.parts.begin(), date.parts.end(), IsName);
  if (names == 1) return DayWithName(date.parts, order_);
  return names == 0 && IsNumericForm(date) ? DayOfNumbers(date.parts, order_) : std::nullopt;
}

bool DateRecognizer::TakeSpelled(std::string_view& rest, Spelled& date) const {
  for (std::size_t i = 0; i < date.parts.size(); ++i) {
    if (!TakePart(rest, date.parts[i])) return false;
    date.gaps[i] = TakeGap(rest);
  }
  return true;
}

bool DateRecognizer::TakePart(std::string_view& rest, DatePart& part) const {
  if (TakeNumber(rest, 4, part.value, part.digits)) return true;
  const Spelling* month = FindSpelling(months_, rest);
  if (month == nullptr) return false;
  part = {month->number, 0};
  rest.remove_prefix(month->text.size());
  return true;
}

/// Takes blanks, words, and marks that do not follow one another.
DateRecognizer::Gap DateRecognizer::TakeGap(std::string_view& rest) const {
  Gap gap;
  bool follows_mark = false;
  while (!rest.empty()) {
    if (rest[0] == ' ') {
      gap.has_blank = true;
    } else if (IsMark(rest[0]) && !follows_mark) {
      if (gap.mark == '\0') gap.mark = rest[0];
      follows_mark = true;
    } else if (TakeWord(rest)) {
      gap.has_word = true;
      follows_mark = false;
      continue;
    } else {
      break;
    }
    rest.remove_prefix(1);
  }
  return gap;
}

/// Takes a word of the locale's dates, unless a month begins there: in Lithuanian "d" is such a word, and
/// "dec" is a month.
bool DateRecognizer::TakeWord(std::string_view& rest) const {
  if (StartsWithDigit(rest) || FindSpelling(months_, rest) != nullptr) return false;
  for (const std::string& word : date_words_) {
    if (!text::StartsWithAscii(rest, word)) continue;
    rest.remove_prefix(word.size());
    return true;
  }
  return false;
}

bool DateRecognizer::IsNumericForm(const Spelled& date) {
  const auto& [first, second, end] = date.gaps;
  if (first.has_word || second.has_word) return true;
  if (first.mark == '\0' || first.mark == ',') return false;
  return second.mark == first.mark || (second.mark == '\0' && date.parts[2].digits == 4);
}

bool DateRecognizer::IsIsoDate(const Spelled& date) {
  return date.parts[0].digits == 4 && date.parts[1].digits == 2 && date.parts[2].digits == 2 &&
         date.gaps[0].mark == '-' && date.gaps[1].mark == '-';
}

}  // namespace dralo::regional
