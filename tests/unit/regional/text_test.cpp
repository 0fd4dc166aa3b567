#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>

#include "dralo/error.h"
#include "regional/locale_formatting.h"

namespace dralo::regional {
namespace {

using platform::DateTime;
using platform::DecimalView;
using platform::VariantView;

std::string TextIn(std::string_view locale, const VariantView& value) {
  std::string scratch;
  return std::string(MakeFormatting(locale)->Text(value, scratch));
}

std::string Text(const VariantView& value) {
  static const auto formatting = MakeFormatting("en-US");
  std::string scratch;
  return std::string(formatting->Text(value, scratch));
}

constexpr DateTime kAfternoonInMay{2024, 5, 3, 14, 5, 9, 0};
constexpr DateTime kNewYearsEve{2024, 12, 31, 0, 30, 0, 0};
constexpr DateTime kDay{2024, 5, 3};
constexpr DateTime kTimeAlone{1899, 12, 30, 9, 5, 0, 0};
constexpr DateTime kZero{};

struct Expected {
  std::string_view locale;
  std::string_view afternoon, night, day, time_alone, zero;
  std::string_view number;  ///< Of -1234567.5
};

TEST(Text, FollowsTheLocale) {
  const Expected table[] = {
      {"en-US", "5/3/2024 2:05:09 PM", "12/31/2024 12:30:00 AM", "5/3/2024", "9:05:00 AM", "12:00:00 AM",
       "-1234567.5"},
      {"de-DE", "03.05.2024 14:05:09", "31.12.2024 00:30:00", "03.05.2024", "09:05:00", "00:00:00",
       "-1234567,5"},
      {"nb-NO", "03.05.2024 14:05:09", "31.12.2024 00:30:00", "03.05.2024", "09:05:00", "00:00:00",
       "-1234567,5"},
      {"fr-FR", "03/05/2024 14:05:09", "31/12/2024 00:30:00", "03/05/2024", "09:05:00", "00:00:00",
       "-1234567,5"},
      {"en-GB", "03/05/2024 14:05:09", "31/12/2024 00:30:00", "03/05/2024", "09:05:00", "00:00:00",
       "-1234567.5"},
      {"ja-JP", "2024/05/03 14:05:09", "2024/12/31 0:30:00", "2024/05/03", "9:05:00", "0:00:00",
       "-1234567.5"},
      {"ar-EG", "3/5/2024 2:05:09 م", "31/12/2024 12:30:00 ص", "3/5/2024", "9:05:00 ص", "12:00:00 ص",
       "-1234567.5"},
      {"ar-SA", "3/5/2024 2:05:09 م", "31/12/2024 12:30:00 ص", "3/5/2024", "9:05:00 ص", "12:00:00 ص",
       "-1234567.5"},
      {"ko-KR", "2024. 5. 3. 오후 2:05:09", "2024. 12. 31. 오전 12:30:00", "2024. 5. 3.", "오전 9:05:00",
       "오전 12:00:00", "-1234567.5"},
      {"bg-BG", "3.05.2024 г. 14:05:09", "31.12.2024 г. 0:30:00", "3.05.2024 г.", "9:05:00", "0:00:00",
       "-1234567,5"},
      {"da-DK", "03.05.2024 14:05:09", "31.12.2024 00:30:00", "03.05.2024", "09:05:00", "00:00:00",
       "-1234567,5"},
      {"th-TH", "3/5/2024 14:05:09", "31/12/2024 00:30:00", "3/5/2024", "09:05:00", "00:00:00", "-1234567.5"},
  };
  for (const Expected& expected : table) {
    SCOPED_TRACE(expected.locale);
    EXPECT_EQ(TextIn(expected.locale, kAfternoonInMay), expected.afternoon);
    EXPECT_EQ(TextIn(expected.locale, kNewYearsEve), expected.night);
    EXPECT_EQ(TextIn(expected.locale, kDay), expected.day);
    EXPECT_EQ(TextIn(expected.locale, kTimeAlone), expected.time_alone);
    EXPECT_EQ(TextIn(expected.locale, kZero), expected.zero);
    EXPECT_EQ(TextIn(expected.locale, -1234567.5), expected.number);
    EXPECT_EQ(TextIn(expected.locale, DecimalView{"-1234567.50"}), expected.number);
    EXPECT_EQ("-" + TextIn(expected.locale, DecimalView{"1234567.5"}), expected.number);
  }
}

TEST(Text, OfWholeNumbersIsPlainDigits) {
  EXPECT_EQ(Text(std::int64_t{0}), "0");
  EXPECT_EQ(Text(std::int64_t{-1234567}), "-1234567");
  EXPECT_EQ(Text(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
  EXPECT_EQ(Text(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(Text, OfDoublesHasAtMostFifteenDigits) {
  const std::pair<double, std::string_view> table[] = {
      {0.0, "0"},
      {-0.0, "0"},
      {1.0, "1"},
      {-1.5, "-1.5"},
      {0.1, "0.1"},
      {0.1 + 0.2, "0.3"},
      {1.0 / 3, "0.333333333333333"},
      {-2.0 / 3, "-0.666666666666667"},
      {0.0001, "0.0001"},
      {-0.0102, "-0.0102"},
      {19.99, "19.99"},
      {100.0, "100"},
      {99999999999.9999, "99999999999.9999"},
      {123456789012345.0, "123456789012345"},
      {12345678901234.5, "12345678901234.5"},
      {1e-300, "1E-300"},
      {5e-324, "4.94065645841247E-324"},
      {1.7976931348623157e308, "1.79769313486232E+308"},
  };
  for (const auto& [number, text] : table) EXPECT_EQ(Text(number), text);
}

TEST(Text, OfDoublesTakesAnExponentBelowAHundredThousandthAndFromATrillionThousand) {
  EXPECT_EQ(Text(0.00001), "0.00001");
  EXPECT_EQ(Text(0.0000123), "0.0000123");
  EXPECT_EQ(Text(-0.0000099), "-9.9E-06");
  EXPECT_EQ(Text(0.000001), "1E-06");
  EXPECT_EQ(Text(999999999999999.0), "999999999999999");
  EXPECT_EQ(Text(999999999999999.9), "1E+15");
  EXPECT_EQ(Text(1e15), "1E+15");
  EXPECT_EQ(Text(-1.5e20), "-1.5E+20");
  EXPECT_EQ(TextIn("de-DE", -1.5e20), "-1,5E+20");
}

TEST(Text, OfDoublesThatAreNoNumbersIsReadable) {
  EXPECT_EQ(Text(std::numeric_limits<double>::quiet_NaN()), "NaN");
  EXPECT_EQ(Text(-std::numeric_limits<double>::quiet_NaN()), "NaN");
  EXPECT_EQ(Text(std::numeric_limits<double>::infinity()), "Infinity");
  EXPECT_EQ(Text(-std::numeric_limits<double>::infinity()), "-Infinity");
}

/// The C library's text; it writes an exponent from E-05 on, so numbers are compared that have none or a
/// larger one.
std::string PrintedText(double number) {
  char text[64];
  std::snprintf(text, sizeof text, "%.15G", number);
  return text;
}

TEST(Text, OfDoublesAgreesWithThePrinterOfTheLibrary) {
  std::mt19937_64 random(20240503);
  int compared = 0;
  for (int i = 0; i < 300'000; ++i) {
    const std::uint64_t bits = random();
    double number = 0;
    switch (i % 3) {
      case 0:
        std::memcpy(&number, &bits, sizeof number);
        break;
      case 1:
        number = static_cast<double>(static_cast<std::int64_t>(bits) >> (bits % 50 + 14)) / 1e4;
        break;
      default:
        number = std::ldexp(static_cast<double>(bits >> 11), static_cast<int>(bits % 80) - 70);
        break;
    }
    const double size = std::abs(number);
    if (!std::isfinite(number) || number == 0 || (size > 0.9e-5 && size < 1.1e-4)) continue;
    ASSERT_EQ(Text(number), PrintedText(number));
    ++compared;
  }
  EXPECT_GT(compared, 290'000);
}

TEST(Text, OfDecimalsIsExactWithoutNeedlessZeros) {
  const std::pair<std::string_view, std::string_view> table[] = {
      {"21.00", "21"},
      {"10.50", "10.5"},
      {"-0.00", "0"},
      {"0", "0"},
      {"-0", "0"},
      {"000", "0"},
      {"+5", "5"},
      {"+0.5", "0.5"},
      {"007.250", "7.25"},
      {"-007", "-7"},
      {".5", "0.5"},
      {"-.5", "-0.5"},
      {"5.", "5"},
      {"100", "100"},
      {"97290.27", "97290.27"},
      {"12.30", "12.3"},
      {"-100.10", "-100.1"},
      {"0.1000000000000000055511151231257827", "0.1000000000000000055511151231257827"},
      {"123456789012345678901234567890.0", "123456789012345678901234567890"},
  };
  for (const auto& [decimal, text] : table) EXPECT_EQ(Text(DecimalView{decimal}), text) << decimal;
  const std::string nines(5'000, '9');
  EXPECT_EQ(Text(DecimalView{"-" + nines + "." + nines + "0"}), "-" + nines + "." + nines);
}

TEST(Text, OfWhatIsNoDecimalIsThatText) {
  for (const std::string_view text : {"", "-", ".", "-.", "abc", "1.2.3", "1e5", " 1", "--1", "1:5"}) {
    EXPECT_EQ(Text(DecimalView{text}), text);
  }
}

TEST(Text, OfBooleansNullAndBytes) {
  const std::uint8_t bytes[] = {65, 66};
  EXPECT_EQ(Text(true), "True");
  EXPECT_EQ(Text(false), "False");
  EXPECT_EQ(Text(platform::Null{}), "");
  EXPECT_EQ(Text(platform::BytesView{bytes, sizeof bytes}), "");
}

TEST(Text, OfBooleansIsInTheLanguageOfTheLocale) {
  struct Words {
    std::string_view locale, of_true, of_false;
  };
  const Words table[] = {
      {"de-DE", "Wahr", "Falsch"},      {"de-CH", "Wahr", "Falsch"},      {"nb-NO", "Sann", "Usann"},
      {"nn-NO", "Sann", "Usann"},       {"no-NO", "Sann", "Usann"},       {"sv-SE", "Sant", "Falskt"},
      {"da-DK", "Sand", "Falsk"},       {"fr-FR", "Vrai", "Faux"},        {"fr-CA", "Vrai", "Faux"},
      {"es-MX", "Verdadero", "Falso"},  {"it-IT", "Vero", "Falso"},       {"nl-NL", "Waar", "Onwaar"},
      {"pt-BR", "Verdadeiro", "Falso"}, {"pt-PT", "Verdadeiro", "Falso"}, {"fi-FI", "Tosi", "Epätosi"},
      {"pl-PL", "Prawda", "Fałsz"},     {"en-GB", "True", "False"},       {"ja-JP", "True", "False"},
      {"cs-CZ", "True", "False"},       {"fil-PH", "True", "False"},
  };
  for (const auto& [locale, of_true, of_false] : table) {
    EXPECT_EQ(TextIn(locale, true), of_true) << locale;
    EXPECT_EQ(TextIn(locale, false), of_false) << locale;
  }
}

TEST(Text, OfTextIsTheSameBytes) {
  const auto formatting = MakeFormatting("en-US");
  const std::string_view text = " <b>\xFF ";
  std::string scratch = "untouched";
  const std::string_view result = formatting->Text(text, scratch);
  EXPECT_EQ(result.data(), text.data());
  EXPECT_EQ(result.size(), text.size());
  EXPECT_EQ(scratch, "untouched");
}

TEST(Text, CountsFractionsOfASecondAsNoTime) {
  EXPECT_EQ(Text(DateTime{2024, 5, 3, 0, 0, 0, 999'999'999}), "5/3/2024");
  EXPECT_EQ(Text(DateTime{2024, 5, 3, 0, 0, 1, 500'000'000}), "5/3/2024 12:00:01 AM");
}

TEST(Text, FillsTheYearUpToFourDigits) {
  EXPECT_EQ(Text(DateTime{1, 1, 1}), "1/1/0001");
  EXPECT_EQ(Text(DateTime{9999, 12, 31}), "12/31/9999");
}

TEST(Text, OfAnyDateTimeIsWritten) {
  EXPECT_EQ(Text(DateTime{-32768, 255, 255, 255, 255, 255, 0}), "255/255/-32768 3:255:255 PM");
  EXPECT_EQ(Text(DateTime{32767, 0, 0}), "0/0/32767");
}

TEST(Text, NeedsNoMoreMemoryOnceTheScratchHasGrown) {
  const auto formatting = MakeFormatting("en-US");
  std::string scratch;
  formatting->Text(kAfternoonInMay, scratch);
  formatting->Text(1.0 / 3, scratch);
  const char* place = scratch.data();
  for (const VariantView& value :
       {VariantView(kAfternoonInMay), VariantView(std::int64_t{-5}), VariantView(2.0 / 3), VariantView(kZero),
        VariantView(DecimalView{"-1.5"})}) {
    const std::string_view text = formatting->Text(value, scratch);
    EXPECT_EQ(scratch.data(), place);
    EXPECT_GE(text.data(), place);
    EXPECT_LE(text.data() + text.size(), place + scratch.size());
  }
}

TEST(Text, HasOrdinaryBlanksOnly) {
  for (const std::string_view locale :
       {"en-US", "en-AU", "es-MX", "fr-CA", "zh-TW", "ar-EG", "fa-IR", "he-IL"}) {
    const std::string text = TextIn(locale, kAfternoonInMay);
    for (const std::string_view hidden : {"\u00A0", "\u202F", "\u200E", "\u200F", "\u061C"}) {
      EXPECT_EQ(text.find(hidden), text.npos) << locale << ": " << text;
    }
  }
}

TEST(MakeFormatting, RefusesAnUnknownLocale) { EXPECT_THROW(MakeFormatting("xx-YY"), platform::Error); }

}  // namespace
}  // namespace dralo::regional
