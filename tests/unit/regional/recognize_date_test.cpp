#include <gtest/gtest.h>

#include <cstdio>

#include "regional/locale_formatting.h"

namespace dralo::regional {
namespace {

using platform::DateTime;

std::string Iso(const std::optional<DateTime>& time) {
  if (!time) return "none";
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", time->year, time->month, time->day,
                time->hour, time->minute, time->second);
  return text;
}

struct Row {
  std::string_view text, time;
};

template <std::size_t Size>
void ExpectDates(std::string_view locale, const Row (&table)[Size]) {
  const auto formatting = MakeFormatting(locale);
  for (const auto& [text, time] : table) {
    const std::string recognized = Iso(formatting->RecognizeDate(text));
    const bool is_day = time.size() == 10;
    EXPECT_EQ(recognized, is_day ? std::string(time) + " 00:00:00" : std::string(time))
        << locale << ": " << text;
  }
}

TEST(RecognizeDate, ReadsNumbersInTheOrderOfTheLocale) {
  ExpectDates("en-US",
              {{"5/3/2024", "2024-05-03"}, {"05-03-2024", "2024-05-03"}, {"5.3.2024", "2024-05-03"}});
  ExpectDates("de-DE",
              {{"5.3.2024", "2024-03-05"}, {"05/03/2024", "2024-03-05"}, {"5-3-2024", "2024-03-05"}});
  ExpectDates("nb-NO", {{"05.03.2024", "2024-03-05"}, {"5/3 2024", "2024-03-05"}});
  ExpectDates("fr-FR", {{"05/03/2024", "2024-03-05"}, {"5.3.24", "2024-03-05"}});
  ExpectDates("ar-EG", {{"5/3/2024", "2024-03-05"}, {"5\u200F/3\u200F/2024", "2024-03-05"}});
  ExpectDates("ja-JP",
              {{"2024/05/03", "2024-05-03"}, {"24/05/03", "2024-05-03"}, {"2024.5.3", "2024-05-03"}});
  ExpectDates("hu-HU", {{"2024. 05. 03.", "2024-05-03"}, {"2024.05.03", "2024-05-03"}});
  ExpectDates("bg-BG", {{"3.05.2024 г.", "2024-05-03"}, {"3.05.2024", "2024-05-03"}});
}

TEST(RecognizeDate, IgnoresBlanksAround) {
  ExpectDates("en-US", {{"  5/3/2024\t\n", "2024-05-03"}, {"\u00A05 / 3 / 2024 ", "2024-05-03"}});
}

TEST(RecognizeDate, PutsTwoDigitYearsBetween1930And2029) {
  ExpectDates("en-US", {{"5/3/00", "2000-05-03"},
                        {"5/3/29", "2029-05-03"},
                        {"5/3/30", "1930-05-03"},
                        {"5/3/99", "1999-05-03"},
                        {"May 3, 29", "2029-05-03"},
                        {"3 May 30", "1930-05-03"},
                        {"5/3/0029", "0029-05-03"}});
}

TEST(RecognizeDate, TakesAnotherOrderWhenOnlyOneDayComesOfIt) {
  ExpectDates("en-US", {{"13/5/2024", "2024-05-13"},
                        {"13/5/24", "2024-05-13"},
                        {"2024/5/3", "2024-05-03"},
                        {"2024/13/5", "none"},
                        {"99/12/31", "none"}});
  ExpectDates("de-DE", {{"5/13/2024", "2024-05-13"}, {"2024.5.3", "2024-05-03"}});
  ExpectDates("ja-JP", {{"13/5/2024", "2024-05-13"},
                        {"5/13/2024", "2024-05-13"},
                        {"3/5/2024", "none"},
                        {"5/5/2024", "2024-05-05"}});
}

TEST(RecognizeDate, RefusesWhatIsNoDayOfTheCalendar) {
  ExpectDates("en-US", {{"2/30/2024", "none"},
                        {"2/29/2024", "2024-02-29"},
                        {"2/29/2023", "none"},
                        {"2/29/1900", "none"},
                        {"13/13/2024", "none"},
                        {"0/5/2024", "none"},
                        {"5/0/2024", "none"},
                        {"1/1/0000", "none"},
                        {"2024-02-30", "none"},
                        {"2024-13-05", "none"},
                        {"30 Feb 2024", "none"},
                        {"32 Jan 2024", "none"}});
}

TEST(RecognizeDate, ReadsMonthNamesOfTheLocaleAndEnglish) {
  ExpectDates("en-US", {{"May 3, 2024", "2024-05-03"},
                        {"may 3 2024", "2024-05-03"},
                        {"3 MAY 2024", "2024-05-03"},
                        {"3-May-2024", "2024-05-03"},
                        {"03MAY2024", "2024-05-03"},
                        {"3-May-24", "2024-05-03"},
                        {"December 31, 1999", "1999-12-31"},
                        {"Dec. 31, 1999", "1999-12-31"},
                        {"Sept 5 2024", "2024-09-05"},
                        {"2024 May 3", "2024-05-03"},
                        {"2024-May-03", "2024-05-03"},
                        {"Mayor 3 2024", "none"},
                        {"May 2024", "none"},
                        {"May", "none"},
                        {"3 May May", "none"},
                        {"3 Mai 2024", "none"}});
  ExpectDates("de-DE", {{"3. Mai 2024", "2024-05-03"},
                        {"3. März 2024", "2024-03-03"},
                        {"3. MÄRZ 2024", "2024-03-03"},
                        {"3. märz 2024", "2024-03-03"},
                        {"3. Dez. 2024", "2024-12-03"},
                        {"31. Dezember 2024, 14:30", "2024-12-31 14:30:00"},
                        {"3 May 2024", "2024-05-03"}});
  ExpectDates("nb-NO", {{"17. mai 2024", "2024-05-17"}, {"17. des. 2024", "2024-12-17"}});
  ExpectDates(
      "fr-FR",
      {{"1 août 2024", "2024-08-01"}, {"14 juil. 2024", "2024-07-14"}, {"14 JUILLET 2024", "2024-07-14"}});
  ExpectDates("es-ES", {{"3 de mayo de 2024", "2024-05-03"}, {"3 mayo 2024", "2024-05-03"}});
  ExpectDates("ru-RU", {{"3 мая 2024 г.", "2024-05-03"}, {"3 Май 2024", "2024-05-03"}});
  ExpectDates("lt-LT", {{"2024 m. gruodžio 3 d.", "2024-12-03"}, {"3 dec 2024", "2024-12-03"}});
  ExpectDates("vi-VN", {{"3 tháng 12, 2024", "2024-12-03"},
                        {"3 tháng 1, 2024", "2024-01-03"},
                        {"3 tháng 13, 2024", "none"},
                        {"3 tháng 32024", "none"}});
  ExpectDates("ja-JP", {{"2024年5月3日", "2024-05-03"}, {"2024年12月31日 14:30", "2024-12-31 14:30:00"}});
  ExpectDates("ko-KR", {{"2024년 5월 3일", "2024-05-03"}});
  ExpectDates("th-TH", {{"3 พ.ค. 2024", "2024-05-03"}});
  ExpectDates("fa-IR", {{"3 دسامبر 2024", "2024-12-03"}});
  ExpectDates("ar-EG", {{"3 مايو 2024", "2024-05-03"}});
}

TEST(RecognizeDate, ReadsIsoFormInEveryLocale) {
  for (const std::string_view locale : {"en-US", "de-DE", "nb-NO", "fr-FR", "ar-EG", "ja-JP", "fi-FI"}) {
    ExpectDates(locale, {{"2024-05-03", "2024-05-03"},
                         {"2024-05-03T14:05:09", "2024-05-03 14:05:09"},
                         {"2024-05-03 14:05:09", "2024-05-03 14:05:09"},
                         {"2024-05-03T14:05:09.123456789Z", "2024-05-03 14:05:09"},
                         {"2024-05-03T14:05Z", "2024-05-03 14:05:00"},
                         {"2024-05-03T24:00:00", "none"},
                         {"2024-05-03T14:05:60", "none"},
                         {"2024-05-03T", "none"},
                         {"2024-05-03Z", "none"},
                         {"2024-05-03T14:05:09+02:00", "none"},
                         {"5/3/2024T14:05", "none"},
                         {"2024-05", "none"},
                         {"20240503", "none"}});
  }
}

TEST(RecognizeDate, KeepsNineDigitsOfTheSecond) {
  const auto formatting = MakeFormatting("en-US");
  EXPECT_EQ(formatting->RecognizeDate("2024-05-03T14:05:09.5").value().nanosecond, 500'000'000U);
  EXPECT_EQ(formatting->RecognizeDate("2024-05-03 14:05:09,000000001").value().nanosecond, 1U);
  EXPECT_EQ(formatting->RecognizeDate("5/3/2024 14:05:09.1234567899999").value().nanosecond, 123'456'789U);
  EXPECT_EQ(formatting->RecognizeDate("5/3/2024 2:05:09.25 PM").value().nanosecond, 250'000'000U);
}

TEST(RecognizeDate, ReadsTimesAfterDates) {
  ExpectDates("en-US", {{"5/3/2024 2:05:09 PM", "2024-05-03 14:05:09"},
                        {"5/3/2024 2:05 pm", "2024-05-03 14:05:00"},
                        {"5/3/2024 2:05PM", "2024-05-03 14:05:00"},
                        {"5/3/2024, 2:05\u202FPM", "2024-05-03 14:05:00"},
                        {"5/3/2024 2 p.m.", "2024-05-03 14:00:00"},
                        {"5/3/2024 12:30 AM", "2024-05-03 00:30:00"},
                        {"5/3/2024 12:30 PM", "2024-05-03 12:30:00"},
                        {"5/3/2024 0:30 AM", "2024-05-03 00:30:00"},
                        {"5/3/2024 14:05", "2024-05-03 14:05:00"},
                        {"May 3, 2024 14:05", "2024-05-03 14:05:00"},
                        {"5/3/2024 13:05 PM", "none"},
                        {"5/3/2024 14:5", "none"},
                        {"5/3/2024 14:60", "none"},
                        {"5/3/2024 14", "none"},
                        {"5/3/2024 14:05:09:10", "none"},
                        {"5/3/2024 14:05 x", "none"},
                        {"5/3/2024,", "none"},
                        {"14:05 5/3/2024", "none"}});
  ExpectDates("fi-FI",
              {{"3.5.2024 14.05", "2024-05-03 14:05:00"}, {"3.5.2024 14.05.09", "2024-05-03 14:05:09"}});
  ExpectDates("ko-KR", {{"2024. 5. 3. 오후 2:05:09", "2024-05-03 14:05:09"}});
  ExpectDates("ar-EG", {{"3/5/2024 2:05:09 م", "2024-05-03 14:05:09"}});
}

TEST(RecognizeDate, PutsATimeAloneOnTheZeroDate) {
  ExpectDates("en-US", {{"14:05", "1899-12-30 14:05:00"},
                        {"2:05:09 PM", "1899-12-30 14:05:09"},
                        {"12 AM", "1899-12-30 00:00:00"},
                        {"0:00", "1899-12-30 00:00:00"},
                        {"24:00", "none"},
                        {"14:", "none"},
                        {"14:05:", "none"},
                        {":05", "none"},
                        {"PM", "none"},
                        {"AM 2:05 PM", "none"}});
  ExpectDates("da-DK", {{"10.11.12", "2012-11-10"}, {"14.30", "none"}, {"10:11:12", "1899-12-30 10:11:12"}});
}

TEST(RecognizeDate, RefusesWhatIsNoDate) {
  for (const std::string_view locale : {"en-US", "de-DE", "ja-JP"}) {
    const auto formatting = MakeFormatting(locale);
    for (const std::string_view text : {"",
                                        " ",
                                        "5",
                                        "2024",
                                        "1.5",
                                        "1,5",
                                        "45000",
                                        "-5",
                                        "5/3",
                                        "5/3/",
                                        "/5/3/2024",
                                        "5//3/2024",
                                        "5/3/2024/",
                                        "5/3/2024-",
                                        "5/3.2024",
                                        "5,3,2024",
                                        "5 3 2024",
                                        "5/3/202",
                                        "5/3/20245",
                                        "5/3/4",
                                        "005/3/2024",
                                        "a/b/c",
                                        "10.11.12.13",
                                        "1.2.3",
                                        "tomorrow",
                                        "5/3/2024 and more",
                                        "2024-W18-5"}) {
      EXPECT_EQ(Iso(formatting->RecognizeDate(text)), "none") << locale << ": " << text;
    }
    EXPECT_EQ(Iso(formatting->RecognizeDate(std::string_view("5/3/2024\0", 9))), "none");
    EXPECT_EQ(Iso(formatting->RecognizeDate(std::string(1'000'000, '5'))), "none");
    EXPECT_EQ(Iso(formatting->RecognizeDate("5/3/" + std::string(300, ' ') + "2024")), "none");
  }
}

}  // namespace
}  // namespace dralo::regional
