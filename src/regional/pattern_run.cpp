#include "regional/pattern_run.h"

#include <algorithm>

#include "text/ascii.h"
#include "text/white_space.h"

namespace dralo::regional {
namespace {

void AddLiteralText(std::vector<PatternRun>& runs, std::string_view text) {
  if (runs.empty() || runs.back().letter != '\0') runs.emplace_back();
  runs.back().text += text;
}

/// Takes the quoted text at the start of `rest`, with its quotes; "''" stands for one quote.
void TakeQuoted(std::string_view& rest, std::vector<PatternRun>& runs) {
  const std::size_t end = std::min(rest.find('\'', 1), rest.size() - 1);
  AddLiteralText(runs, end == 1 ? "'" : rest.substr(1, end - 1));
  rest.remove_prefix(end + 1);
}

void TakeLetters(std::string_view& rest, std::vector<PatternRun>& runs) {
  const std::size_t width = std::min(rest.find_first_not_of(rest.front()), rest.size());
  runs.push_back({rest.front(), static_cast<int>(width), {}});
  rest.remove_prefix(width);
}

bool IsHour(char letter) { return letter == 'H' || letter == 'h' || letter == 'K' || letter == 'k'; }
bool IsDayHalf(char letter) { return letter == 'a' || letter == 'b' || letter == 'B'; }

std::size_t PlaceOf(const std::vector<PatternRun>& runs, char letter) {
  const auto is_letter = [letter](const PatternRun& run) { return run.letter == letter; };
  return static_cast<std::size_t>(std::find_if(runs.begin(), runs.end(), is_letter) - runs.begin());
}

void AddClock(DateTimePattern& pattern, DateTimePart hour, int hour_width) {
  pattern.Add(hour, hour_width);
  pattern.AddLiteral(":");
  pattern.Add(DateTimePart::kMinute, 2);
  pattern.AddLiteral(":");
  pattern.Add(DateTimePart::kSecond, 2);
}

}  // namespace

std::vector<PatternRun> SplitPattern(std::string_view pattern) {
  std::vector<PatternRun> runs;
  while (!pattern.empty()) {
    if (pattern.front() == '\'') {
      TakeQuoted(pattern, runs);
    } else if (text::IsLetter(pattern.front())) {
      TakeLetters(pattern, runs);
    } else if (const std::size_t mark = text::DirectionMarkSize(pattern)) {
      pattern.remove_prefix(mark);
    } else {
      const std::size_t blank = text::WhiteSpaceSize(pattern);
      AddLiteralText(runs, blank != 0 ? " " : pattern.substr(0, 1));
      pattern.remove_prefix(std::max<std::size_t>(blank, 1));
    }
  }
  return runs;
}

DateTimePattern ShortDate(const std::vector<PatternRun>& runs) {
  DateTimePattern pattern;
  for (const PatternRun& run : runs) {
    switch (run.letter) {
      case 'd':
        pattern.Add(DateTimePart::kDay, run.width);
        break;
      case 'M':
        pattern.Add(DateTimePart::kMonth, run.width);
        break;
      case 'y':
        pattern.Add(DateTimePart::kYear, 4);
        break;
      case '\0':
        pattern.AddLiteral(run.text);
        break;
      default:
        break;
    }
  }
  return pattern;
}

DateOrder OrderOf(const std::vector<PatternRun>& runs) {
  if (PlaceOf(runs, 'y') < PlaceOf(runs, 'd')) return DateOrder::kYearMonthDay;
  return PlaceOf(runs, 'd') < PlaceOf(runs, 'M') ? DateOrder::kDayMonthYear : DateOrder::kMonthDayYear;
}

DateTimePattern LongTime(const std::vector<PatternRun>& runs, std::string_view morning,
                         std::string_view afternoon) {
  const auto hour =
      std::find_if(runs.begin(), runs.end(), [](const PatternRun& run) { return IsHour(run.letter); });
  const auto half =
      std::find_if(runs.begin(), runs.end(), [](const PatternRun& run) { return IsDayHalf(run.letter); });
  const int hour_width = hour == runs.end() ? 2 : hour->width;

  DateTimePattern pattern;
  if (half == runs.end()) {
    AddClock(pattern, DateTimePart::kHour24, hour_width);
  } else if (half < hour) {
    pattern.AddDayHalf(morning, afternoon);
    if (hour - half > 1) pattern.AddLiteral(" ");
    AddClock(pattern, DateTimePart::kHour12, hour_width);
  } else {
    AddClock(pattern, DateTimePart::kHour12, hour_width);
    pattern.AddLiteral(" ");
    pattern.AddDayHalf(morning, afternoon);
  }
  return pattern;
}

char TimeSeparatorOf(const std::vector<PatternRun>& runs) {
  const std::size_t minute = PlaceOf(runs, 'm');
  return minute > 0 && minute < runs.size() && runs[minute - 1].text == "." ? '.' : ':';
}

std::string DateSeparatorOf(const std::vector<PatternRun>& runs) {
  for (std::size_t i = 1; i < runs.size(); ++i) {
    if (runs[i].letter == '\0' && runs[i - 1].letter != '\0') return text::PlainWhiteSpace(runs[i].text);
  }
  return "/";
}

void AddDateWords(const std::vector<PatternRun>& runs, std::vector<std::string>& words) {
  constexpr std::string_view kMarks = " ./-,";
  for (const PatternRun& run : runs) {
    std::string_view rest = run.text;
    while (rest.find_first_not_of(kMarks) != rest.npos) {
      rest.remove_prefix(rest.find_first_not_of(kMarks));
      const std::string word(rest.substr(0, rest.find_first_of(kMarks)));
      rest.remove_prefix(word.size());
      if (std::find(words.begin(), words.end(), word) == words.end()) words.push_back(word);
    }
  }
}

}  // namespace dralo::regional
