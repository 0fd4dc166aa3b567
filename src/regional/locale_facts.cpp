#include "regional/locale_facts.h"

#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/dtfmtsym.h>
#include <unicode/smpdtfmt.h>

#include <memory>
#include <span>

#include "platform/error.h"
#include "regional/blanks.h"
#include "regional/pattern_run.h"
#include "regional/spellings.h"

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

std::vector<PatternRun> DatePattern(const icu::Locale& locale, icu::DateFormat::EStyle style) {
  return RunsOf(std::unique_ptr<icu::DateFormat>(icu::DateFormat::createDateInstance(style, locale)));
}

std::vector<PatternRun> TimePattern(const icu::Locale& locale) {
  return RunsOf(std::unique_ptr<icu::DateFormat>(
      icu::DateFormat::createTimeInstance(icu::DateFormat::kMedium, locale)));
}

void ReadDates(const icu::Locale& locale, LocaleFacts& facts) {
  const std::vector<PatternRun> short_date = DatePattern(locale, icu::DateFormat::kShort);
  facts.short_date = ShortDate(short_date);
  facts.date_order = OrderOf(short_date);
  AddDateWords(short_date, facts.date_words);
  AddDateWords(DatePattern(locale, icu::DateFormat::kLong), facts.date_words);
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
  const std::string morning = PlainBlanks(Utf8(halves[0]));
  const std::string afternoon = PlainBlanks(Utf8(halves[1]));
  for (int half : {0, 1}) AddSpelling(locale, halves[half], half, facts.day_halves);
  AddEnglishDayHalves(facts.day_halves);
  TidySpellings(facts.day_halves);

  const std::vector<PatternRun> pattern = TimePattern(locale);
  facts.long_time = LongTime(pattern, morning, afternoon);
  facts.time_separator = TimeSeparatorOf(pattern);
}

/// Every decimal point that ICU has for Latin digits is one byte.
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
  ReadTimes(icu_locale, symbols, facts);
  ReadNumbers(icu_locale, facts);
  return facts;
}

}  // namespace dralo::regional
