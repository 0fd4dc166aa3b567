#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "regional/locale_formatting.h"

namespace dralo::regional {
namespace {

using platform::DateTime;
using platform::Formatting;

class RoundTrip : public ::testing::TestWithParam<std::string_view> {
 protected:
  std::string Text(const platform::VariantView& value) {
    return std::string(formatting_->Text(value, scratch_));
  }

  int Between(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }

  DateTime AnyDateTime() {
    DateTime time;
    time.year = static_cast<std::int16_t>(Between(1, 9999));
    time.month = static_cast<std::uint8_t>(Between(1, 12));
    time.day = static_cast<std::uint8_t>(Between(1, 28));
    return time;
  }

  void SetTime(DateTime& time) {
    time.hour = static_cast<std::uint8_t>(Between(0, 23));
    time.minute = static_cast<std::uint8_t>(Between(0, 59));
    time.second = static_cast<std::uint8_t>(Between(0, 59));
  }

  void ExpectTheSame(const DateTime& time) {
    const std::string text = Text(time);
    const auto recognized = formatting_->RecognizeDate(text);
    ASSERT_TRUE(recognized.has_value()) << text;
    ASSERT_EQ(*recognized, time) << text;
  }

  const std::unique_ptr<Formatting> formatting_ = MakeFormatting(GetParam());
  std::mt19937 random_{1899};
  std::string scratch_;
};

TEST_P(RoundTrip, GivesEveryDateAndTimeBack) {
  for (int i = 0; i < 500; ++i) {
    DateTime time = AnyDateTime();
    ExpectTheSame(time);
    SetTime(time);
    ExpectTheSame(time);
    DateTime alone;
    SetTime(alone);
    ExpectTheSame(alone);
  }
}

TEST_P(RoundTrip, GivesTheEdgesBack) {
  for (const DateTime& time : {DateTime{}, DateTime{1, 1, 1}, DateTime{9999, 12, 31, 23, 59, 59, 0},
                               DateTime{2024, 2, 29}, DateTime{2024, 5, 3, 12, 0, 0, 0},
                               DateTime{2024, 5, 3, 0, 0, 1, 0}, DateTime{1899, 12, 30, 10, 11, 12, 0}}) {
    ExpectTheSame(time);
  }
}

TEST_P(RoundTrip, GivesEveryNumberBack) {
  for (int i = 0; i < 1'000; ++i) {
    const auto whole = static_cast<std::int64_t>(std::uniform_int_distribution<std::uint64_t>()(random_));
    ASSERT_EQ(formatting_->RecognizeNumber(Text(whole)).value().text, std::to_string(whole));

    const std::string decimal = std::to_string(whole) + "." + std::to_string(Between(0, 9999)) + "7";
    ASSERT_EQ(formatting_->RecognizeNumber(Text(platform::DecimalView{decimal})).value().text, decimal);

    const double number = static_cast<double>(whole) * std::pow(10.0, Between(-40, 40));
    const std::string text = Text(number);
    const auto recognized = formatting_->RecognizeNumber(text);
    ASSERT_TRUE(recognized.has_value()) << text;
    ASSERT_EQ(Text(std::stod(recognized->text)), text);
  }
}

INSTANTIATE_TEST_SUITE_P(Locales, RoundTrip,
                         ::testing::Values("en-US", "en-GB", "de-DE", "nb-NO", "fr-FR", "fr-CA", "fi-FI",
                                           "da-DK", "es-MX", "pt-BR", "hu-HU", "bg-BG", "ru-RU", "tr-TR",
                                           "ar-EG", "fa-IR", "he-IL", "hi-IN", "th-TH", "vi-VN", "ja-JP",
                                           "ko-KR", "zh-TW"));

}  // namespace
}  // namespace dralo::regional
