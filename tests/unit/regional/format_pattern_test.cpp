#include <gtest/gtest.h>

#include <random>
#include <string>

#include "dralo/error.h"
#include "regional/locale_formatting.h"

namespace dralo::regional {
namespace {

using platform::DateTime;
using platform::DecimalView;
using platform::VariantView;

std::string In(std::string_view locale, std::string_view pattern, const VariantView& value) {
  const auto formatting = MakeFormatting(locale);
  std::string scratch;
  const auto format = formatting->MakePattern(pattern, {});
  return format == nullptr ? "no pattern" : std::string(format->Write(value, scratch));
}

std::string Text(std::string_view pattern, const VariantView& value) {
  static const auto formatting = MakeFormatting("en-US");
  std::string scratch;
  const auto format = formatting->MakePattern(pattern, {});
  return format == nullptr ? "no pattern" : std::string(format->Write(value, scratch));
}

std::string Number(std::string_view pattern, std::string_view decimal) {
  return Text(pattern, DecimalView{decimal});
}

struct NumberCase {
  std::string_view pattern, number, text;
};

TEST(NumberPattern, WritesEveryPlaceholder) {
  const NumberCase cases[] = {
      {"0", "7.5", "8"},
      {"00000", "42", "00042"},
      {"#", "0", ""},
      {"#.##", "0.5", ".5"},
      {"#.##", "5", "5."},
      {"0.00", "3.14159", "3.14"},
      {"0.0#", "3.1", "3.1"},
      {"0.0#", "3.149", "3.15"},
      {"0.#0", "3", "3.00"},
      {".00", "12.5", "12.50"},
      {"#,##0", "1234567", "1,234,567"},
      {"#,##0.00", "-1234.5", "-1,234.50"},
      {"0,000", "7", "0,007"},
      {"0,", "1500", "2"},
      {"0.0,,", "1500000", "1.5"},
      {"#,##0,,", "1234567890", "1,235"},
      {"0%", "0.256", "26%"},
      {"0.0%", "0.2567", "25.7%"},
      {"$0.00", "5", "$5.00"},
      {"(000) 000-0000", "5551234567", "(555) 123-4567"},
      {"000-00-0000", "123456789", "123-45-6789"},
      {"0.00E+00", "12345", "1.23E+04"},
      {"0.00E-00", "12345", "1.23E04"},
      {"0.00e+0", "0.00012345", "1.23e-4"},
      {"0.00E-00", "0.00012345", "1.23E-04"},
      {"00.0E+0", "12345", "12.3E+3"},
      {"0.0E+0", "9.96", "1.0E+1"},
      {"0.0E+0", "0", "0.0E+0"},
      {"0 \"items\"", "3", "3 items"},
      {R"(0\%)", "3", "3%"},
      {R"(\#0)", "3", "#3"},
      {"0 \"open", "3", "3 open"},
      {"0\\", "3", "3\\"},
  };
  for (const NumberCase& one : cases) EXPECT_EQ(Number(one.pattern, one.number), one.text) << one.pattern;
}

TEST(NumberPattern, ChoosesTheSectionByTheSign) {
  constexpr std::string_view kPattern = R"(0.0;(0.0);"none")";
  EXPECT_EQ(Number(kPattern, "2"), "2.0");
  EXPECT_EQ(Number(kPattern, "-2"), "(2.0)");
  EXPECT_EQ(Number(kPattern, "0"), "none");
  EXPECT_EQ(Number(kPattern, "-0.04"), "none");
  EXPECT_EQ(Number("0.0", "-0.04"), "0.0");
  EXPECT_EQ(Number(R"(0;;"zero")", "-3"), "-3");
  EXPECT_EQ(Number(R"(0;"a;b")", "-3"), "a;b");
  EXPECT_EQ(Number(R"(0;-0;;"null")", "0"), "0");
}

TEST(NumberPattern, KnowsTheNamedForms) {
  const NumberCase cases[] = {
      {"General Number", "1234.50", "1234.5"},
      {"currency", "-1234.5", "-$1,234.50"},
      {"Fixed", "1234.567", "1234.57"},
      {"STANDARD", "1234.567", "1,234.57"},
      {"Percent", "0.12345", "12.35%"},
      {"Scientific", "1234.5", "1.23E+03"},
      {"Yes/No", "-1", "Yes"},
      {"Yes/No", "0", "No"},
      {"True/False", "0.1", "True"},
      {"True/False", "0.0", "False"},
      {"On/Off", "1", "On"},
      {"On/Off", "0", "Off"},
  };
  for (const NumberCase& one : cases) EXPECT_EQ(Number(one.pattern, one.number), one.text) << one.pattern;
}

TEST(NumberPattern, FollowsTheLocale) {
  EXPECT_EQ(In("de-DE", "#,##0.00", DecimalView{"1234567.891"}), "1.234.567,89");
  EXPECT_EQ(In("nb-NO", "#,##0.00", DecimalView{"1234567.891"}), "1\u00A0234\u00A0567,89");
  EXPECT_EQ(In("en-IN", "#,##0", DecimalView{"1234567"}), "12,34,567");
  EXPECT_EQ(In("de-DE", "Currency", DecimalView{"1234.5"}), "1.234,50\u00A0€");
  EXPECT_EQ(In("de-DE", "Standard", std::string_view("1.234,567")), "1.234,57");
  EXPECT_EQ(In("de-DE", "General Number", DecimalView{"1234.50"}), "1234,5");
}

TEST(NumberPattern, TakesBooleansForNumbersInEveryLanguage) {
  for (const std::string_view locale : {"en-US", "de-DE", "pl-PL"}) {
    EXPECT_EQ(In(locale, "0", true), "-1") << locale;
    EXPECT_EQ(In(locale, "0", false), "0") << locale;
    EXPECT_EQ(In(locale, "Yes/No", true), "Yes") << locale;
    EXPECT_EQ(In(locale, "General Number", true), "-1") << locale;
  }
  EXPECT_EQ(In("de-DE", "yyyy", true), "Wahr");
}

TEST(Pattern, ThatIsEmptyIsOneForTexts) { EXPECT_EQ(Text("", DecimalView{"5"}), "no pattern"); }

TEST(NumberPattern, TakesTextsThatSpellNumbersAndLeavesOthers) {
  EXPECT_EQ(Text("0.00", std::string_view("1,234.5")), "1234.50");
  EXPECT_EQ(Text("0.00", std::int64_t{-7}), "-7.00");
  EXPECT_EQ(Text("0.00", std::string_view("seven")), "seven");
  EXPECT_EQ(Text("Currency", std::string_view("seven")), "seven");
  EXPECT_EQ(Text("Yes/No", std::string_view("maybe")), "maybe");
  EXPECT_EQ(Text("Yes/No", std::string_view("True")), "Yes");
  EXPECT_EQ(Text("Yes/No", std::string_view("False")), "No");
  EXPECT_EQ(Text("0", DateTime{2024, 5, 3}), "5/3/2024");
}

constexpr DateTime kAfternoon{2024, 5, 3, 14, 7, 9, 0};  // A Friday.
constexpr DateTime kNight{2024, 5, 3, 0, 7, 9, 0};

TEST(DatePattern, WritesEveryLetterInThreeLocales) {
  struct Case {
    std::string_view pattern, american, german, norwegian;
  };
  const Case cases[] = {
      {"d", "3", "3", "3"},
      {"dd", "03", "03", "03"},
      {"ddd", "Fri", "Fr", "fre"},
      {"dddd", "Friday", "Freitag", "fredag"},
      {"ddddd", "5/3/2024", "03.05.2024", "03.05.2024"},
      {"dddddd", "Friday, May 3, 2024", "Freitag, 3. Mai 2024", "fredag 3. mai 2024"},
      {"w", "6", "6", "6"},
      {"ww", "18", "18", "18"},
      {"m", "5", "5", "5"},
      {"mm", "05", "05", "05"},
      {"mmm", "May", "Mai", "mai"},
      {"mmmm", "May", "Mai", "mai"},
      {"q", "2", "2", "2"},
      {"y", "124", "124", "124"},
      {"yy", "24", "24", "24"},
      {"yyyy", "2024", "2024", "2024"},
      {"h", "14", "14", "14"},
      {"hh", "14", "14", "14"},
      {"n", "7", "7", "7"},
      {"nn", "07", "07", "07"},
      {"s", "9", "9", "9"},
      {"ss", "09", "09", "09"},
      {"ttttt", "2:07:09 PM", "14:07:09", "14:07:09"},
      {"c", "5/3/2024 2:07:09 PM", "03.05.2024 14:07:09", "03.05.2024 14:07:09"},
      {"d/m/yyyy", "3/5/2024", "3.5.2024", "3.5.2024"},
      {"hh:mm", "14:07", "14:07", "14:07"},
      {"mm:hh:m", "05:14:7", "05:14:7", "05:14:7"},
      {"h:nn AM/PM", "2:07 PM", "2:07 PM", "2:07 PM"},
      {"h:nn am/pm", "2:07 pm", "2:07 pm", "2:07 pm"},
      {"h:nn A/P", "2:07 P", "2:07 P", "2:07 P"},
      {"h:nn a/p", "2:07 p", "2:07 p", "2:07 p"},
      {"h AMPM", "2 PM", "2 PM", "2 p.m."},
      {"YYYY-MM-DD", "2024-05-03", "2024-05-03", "2024-05-03"},
      {R"("Day" d \d\a\y)", "Day 3 day", "Day 3 day", "Day 3 day"},
      {"General Date", "5/3/2024 2:07:09 PM", "03.05.2024 14:07:09", "03.05.2024 14:07:09"},
      {"Long Date", "Friday, May 3, 2024", "Freitag, 3. Mai 2024", "fredag 3. mai 2024"},
      {"Medium Date", "May 3, 2024", "03.05.2024", "3. mai 2024"},
      {"Short Date", "5/3/2024", "03.05.2024", "03.05.2024"},
      {"Long Time", "2:07:09 PM", "14:07:09", "14:07:09"},
      {"Medium Time", "02:07 PM", "02:07 PM", "02:07 p.m."},
      {"Short Time", "14:07", "14:07", "14:07"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(In("en-US", one.pattern, kAfternoon), one.american) << one.pattern;
    EXPECT_EQ(In("de-DE", one.pattern, kAfternoon), one.german) << one.pattern;
    EXPECT_EQ(In("nb-NO", one.pattern, kAfternoon), one.norwegian) << one.pattern;
  }
}

TEST(DatePattern, WritesMidnightAsTwelve) {
  EXPECT_EQ(Text("h:mm AM/PM", kNight), "12:07 AM");
  EXPECT_EQ(Text("h:mm", kNight), "0:07");
}

TEST(DatePattern, TakesTextsThatSpellDatesAndLeavesOthers) {
  EXPECT_EQ(Text("yyyy", std::string_view("5/3/2024")), "2024");
  EXPECT_EQ(Text("yyyy", std::string_view("soon")), "soon");
  EXPECT_EQ(Text("yyyy", std::int64_t{12}), "12");
  EXPECT_EQ(Text("yyyy", DateTime{.year = 2024, .month = 13, .day = 1}), Text("c", DateTime{2024, 13, 1}));
}

TEST(DatePattern, CountsWeeksByTheRule) {
  const auto formatting = MakeFormatting("en-US");
  std::string scratch;
  EXPECT_EQ(formatting->MakePattern("w ww", {2, 2})->Write(DateTime{2021, 1, 1}, scratch), "5 53");
  EXPECT_THROW(static_cast<void>(formatting->MakePattern("w", {9, 1})), platform::Error);
}

TEST(DateText, KnowsTheNamedDatesInThreeLocales) {
  struct Case {
    std::string_view locale;
    std::string_view texts[5];
  };
  const Case cases[] = {
      {"en-US", {"5/3/2024 2:07:09 PM", "Friday, May 3, 2024", "5/3/2024", "2:07:09 PM", "14:07"}},
      {"de-DE", {"03.05.2024 14:07:09", "Freitag, 3. Mai 2024", "03.05.2024", "14:07:09", "14:07"}},
      {"nb-NO", {"03.05.2024 14:07:09", "fredag 3. mai 2024", "03.05.2024", "14:07:09", "14:07"}},
  };
  for (const Case& one : cases) {
    const auto formatting = MakeFormatting(one.locale);
    std::string scratch;
    for (int form = 0; form < 5; ++form) {
      EXPECT_EQ(formatting->DateText(kAfternoon, static_cast<platform::NamedDate>(form), scratch),
                one.texts[form])
          << one.locale;
    }
  }
}

TEST(MakePattern, LeavesPatternsForTextsToOthers) {
  for (const std::string_view pattern : {"@", "&&", "<", ">", "!@@", "(@@) 0"}) {
    EXPECT_EQ(Text(pattern, std::string_view("x")), "no pattern") << pattern;
  }
  EXPECT_EQ(Text(R"(0\@)", std::int64_t{5}), "5@");
}

TEST(MakePattern, SurvivesAnyBytes) {
  constexpr std::string_view kLetters = "0#.,%eE+-;\\\"dwmyqhnstc/: AMPMap@&<>!\xC3\xA4x1\xFF";
  std::mt19937 random(3);
  const auto formatting = MakeFormatting("de-DE");
  std::string scratch;
  for (int i = 0; i < 20'000; ++i) {
    std::string pattern;
    for (auto size = random() % 24; size > 0; --size) pattern += kLetters[random() % kLetters.size()];
    const auto format = formatting->MakePattern(pattern, {});
    if (format == nullptr) continue;
    for (const VariantView& value :
         {VariantView(kAfternoon), VariantView(DecimalView{"-1234567.891"}), VariantView(std::int64_t{0}),
          VariantView(std::string_view("1e999")), VariantView(std::string_view(pattern))}) {
      ASSERT_LT(format->Write(value, scratch).size(), 2'000U) << pattern;
    }
  }
}

}  // namespace
}  // namespace dralo::regional
