#include "regional/locale_facts.h"

#include <unicode/calendar.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/dtfmtsym.h>
#include <unicode/smpdtfmt.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "dralo/error.h"
#include "regional/pattern_run.h"
#include "regional/spellings.h"
#include "text/white_space.h"

namespace dralo::regional {
namespace {

void Check(UErrorCode status) {
  if (U_FAILURE(status))
    throw platform::Error(std::string("ICU has no data for the locale: ") + u_errorName(status));
}

std::string Utf8(const icu::UnicodeString& text) {
  std::string utf8;
  return text.toUTF8String(utf8);
}

std::vector<PatternRun> RunsOf(const std::unique_ptr<icu::DateFormat>& format) {
  const auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format.get());
  if (simple == nullptr) Check(U_UNSUPPORTED_ERROR);
  icu::UnicodeString pattern;
  return SplitPattern(Utf8(simple->toPattern(pattern)));
}

std::vector<PatternRun> RunsOfStyle(const icu::Locale& locale, icu::DateFormat::EStyle style) {
  return RunsOf(std::unique_ptr<icu::DateFormat>(icu::DateFormat::createDateInstance(style, locale)));
}

std::vector<PatternRun> TimePattern(const icu::Locale& locale) {
  return RunsOf(std::unique_ptr<icu::DateFormat>(
      icu::DateFormat::createTimeInstance(icu::DateFormat::kMedium, locale)));
}

void ReadDates(const icu::Locale& locale, LocaleFacts& facts) {
  const std::vector<PatternRun> short_date = RunsOfStyle(locale, icu::DateFormat::kShort);
  facts.short_date = ShortDate(short_date);
  facts.date_order = OrderOf(short_date);
  AddDateWords(short_date, facts.date_words);
  AddDateWords(RunsOfStyle(locale, icu::DateFormat::kLong), facts.date_words);
  facts.date_separator = DateSeparatorOf(short_date);
  facts.medium_date = RunsOfStyle(locale, icu::DateFormat::kMedium);
  facts.long_date = RunsOfStyle(locale, icu::DateFormat::kFull);
}

/// The names from index `first` on; with `alone`, without the full stop of an abbreviation.
template <std::size_t kCount>
void ReadNames(const icu::UnicodeString* names, int32_t count, int32_t first, bool alone,
               std::array<std::string, kCount>& to) {
  if (count < first + static_cast<int32_t>(kCount)) Check(U_MISSING_RESOURCE_ERROR);
  for (std::size_t i = 0; i < kCount; ++i) {
    to[i] = text::PlainWhiteSpace(Utf8(names[first + static_cast<int32_t>(i)]));
    if (alone && to[i].ends_with('.')) to[i].pop_back();
  }
}

void ReadNames(const icu::DateFormatSymbols& symbols, DateNames& names) {
  using Symbols = icu::DateFormatSymbols;
  int32_t count = 0;
  const icu::UnicodeString* found = symbols.getMonths(count, Symbols::FORMAT, Symbols::WIDE);
  ReadNames(found, count, 0, false, names.months);
  found = symbols.getMonths(count, Symbols::FORMAT, Symbols::ABBREVIATED);
  ReadNames(found, count, 0, false, names.short_months);
  found = symbols.getMonths(count, Symbols::STANDALONE, Symbols::ABBREVIATED);
  ReadNames(found, count, 0, true, names.short_months_alone);
  // ICU's lists of weekdays begin with an empty one.
  found = symbols.getWeekdays(count, Symbols::FORMAT, Symbols::WIDE);
  ReadNames(found, count, 1, false, names.days);
  found = symbols.getWeekdays(count, Symbols::FORMAT, Symbols::ABBREVIATED);
  ReadNames(found, count, 1, false, names.short_days);
  found = symbols.getWeekdays(count, Symbols::STANDALONE, Symbols::ABBREVIATED);
  ReadNames(found, count, 1, true, names.short_days_alone);
}

/// Months such as "5월" are a number and a word. It depends on the version of ICU whether they are among its
/// names, or the word is in the pattern of a date.
void AddWordOfNumberedMonths(const DateNames& names, std::vector<std::string>& words) {
  const std::string_view may = names.months[4];
  if (!may.starts_with('5')) return;
  const std::string word(may.substr(1));
  if (!word.empty() && std::find(words.begin(), words.end(), word) == words.end()) words.push_back(word);
}

void ReadWeeks(const icu::Locale& locale, LocaleFacts& facts) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(locale, status));
  Check(status);
  facts.first_day_of_week = calendar->getFirstDayOfWeek(status);
  facts.days_in_first_week = calendar->getMinimalDaysInFirstWeek();
  Check(status);
}

void AddSpelling(const icu::Locale& locale, const icu::UnicodeString& name, int number,
                 std::vector<Spelling>& to) {
  icu::UnicodeString lower = name;
  icu::UnicodeString upper = name;
  icu::UnicodeString title = name;
  for (const icu::UnicodeString& form :
       {name, lower.toLower(locale), upper.toUpper(locale), title.toTitle(nullptr, locale)}) {
    to.push_back({Utf8(form), number});
  }
}

void ReadMonths(const icu::Locale& locale, const icu::DateFormatSymbols& symbols,
                std::vector<Spelling>& months) {
  for (const auto context : {icu::DateFormatSymbols::FORMAT, icu::DateFormatSymbols::STANDALONE}) {
    for (const auto width : {icu::DateFormatSymbols::WIDE, icu::DateFormatSymbols::ABBREVIATED}) {
      int32_t count = 0;
      const icu::UnicodeString* names = symbols.getMonths(count, context, width);
      for (int32_t i = 0; i < count; ++i) AddSpelling(locale, names[i], i + 1, months);
    }
  }
  AddEnglishMonths(months);
  TidySpellings(months);
}

void ReadTimes(const icu::Locale& locale, const icu::DateFormatSymbols& symbols, LocaleFacts& facts) {
  int32_t count = 0;
  const icu::UnicodeString* halves = symbols.getAmPmStrings(count);
  if (count < 2) Check(U_MISSING_RESOURCE_ERROR);
  const std::string morning = text::PlainWhiteSpace(Utf8(halves[0]));
  const std::string afternoon = text::PlainWhiteSpace(Utf8(halves[1]));
  facts.day_half_names = {morning, afternoon};
  for (int half : {0, 1}) AddSpelling(locale, halves[half], half, facts.day_halves);
  AddEnglishDayHalves(facts.day_halves);
  TidySpellings(facts.day_halves);

  const std::vector<PatternRun> pattern = TimePattern(locale);
  facts.long_time = LongTime(pattern, morning, afternoon);
  facts.time_separator = TimeSeparatorOf(pattern);
}

/// An affix as pages show it: without direction marks, and with the minus sign that all texts use.
std::string Affix(const icu::UnicodeString& text) {
  std::string affix;
  std::string utf8 = Utf8(text);
  for (std::string_view rest = utf8; !rest.empty();) {
    constexpr std::string_view kMinus = "\u2212";
    const std::size_t mark = text::DirectionMarkSize(rest);
    if (mark == 0) affix += rest.starts_with(kMinus) ? '-' : rest[0];
    rest.remove_prefix(mark != 0 ? mark : rest.starts_with(kMinus) ? kMinus.size() : 1);
  }
  return affix;
}

std::array<LocaleFacts::Affixes, 2> AffixesOf(const icu::DecimalFormat& format) {
  icu::UnicodeString text;
  std::array<LocaleFacts::Affixes, 2> affixes;
  affixes[0] = {Affix(format.getPositivePrefix(text)), Affix(format.getPositiveSuffix(text))};
  affixes[1] = {Affix(format.getNegativePrefix(text)), Affix(format.getNegativeSuffix(text))};
  return affixes;
}

void ReadAffixes(const icu::Locale& locale, LocaleFacts& facts) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::NumberFormat> percent(icu::NumberFormat::createPercentInstance(locale, status));
  const std::unique_ptr<icu::NumberFormat> currency(
      icu::NumberFormat::createCurrencyInstance(locale, status));
  Check(status);
  const auto* percent_format = dynamic_cast<const icu::DecimalFormat*>(percent.get());
  const auto* currency_format = dynamic_cast<const icu::DecimalFormat*>(currency.get());
  if (percent_format == nullptr || currency_format == nullptr) Check(U_UNSUPPORTED_ERROR);
  facts.percent = AffixesOf(*percent_format);
  facts.currency = AffixesOf(*currency_format);
  facts.currency_digits = currency_format->getMinimumFractionDigits();
}

/// All decimal points that ICU has for Latin digits are one byte long.
void ReadNumbers(const icu::Locale& locale, LocaleFacts& facts) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::NumberFormat> format(icu::NumberFormat::createInstance(locale, status));
  Check(status);
  const auto* decimal = dynamic_cast<const icu::DecimalFormat*>(format.get());
  if (decimal == nullptr) Check(U_UNSUPPORTED_ERROR);
  const icu::DecimalFormatSymbols* symbols = decimal->getDecimalFormatSymbols();
  facts.decimal_point =
      Utf8(symbols->getConstSymbol(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol)) == "," ? ',' : '.';
  facts.grouping = Utf8(symbols->getConstSymbol(icu::DecimalFormatSymbols::kGroupingSeparatorSymbol));
  facts.groups_in_pairs = decimal->getSecondaryGroupingSize() == 2;
  facts.negative_number = AffixesOf(*decimal)[1];
  ReadAffixes(locale, facts);
}

}  // namespace

LocaleFacts ReadLocaleFacts(const std::string& locale) {
  UErrorCode status = U_ZERO_ERROR;
  icu::Locale icu_locale(locale.c_str());
  icu_locale.setKeywordValue("calendar", "gregorian", status);
  icu_locale.setKeywordValue("numbers", "latn", status);
  const icu::DateFormatSymbols symbols(icu_locale, status);
  Check(status);

  LocaleFacts facts;
  ReadDates(icu_locale, facts);
  ReadMonths(icu_locale, symbols, facts.months);
  ReadNames(symbols, facts.names);
  AddWordOfNumberedMonths(facts.names, facts.date_words);
  ReadTimes(icu_locale, symbols, facts);
  facts.date_and_time = facts.short_date;
  facts.date_and_time.AddLiteral(" ");
  facts.date_and_time.Add(facts.long_time);
  ReadWeeks(icu_locale, facts);
  ReadNumbers(icu_locale, facts);
  facts.boolean_words = BooleanWordsOf(icu_locale.getLanguage());
  return facts;
}

}  // namespace dralo::regional
