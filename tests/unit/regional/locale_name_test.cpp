#include "regional/locale_name.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dralo/error.h"

namespace dralo::regional {
namespace {

using ::testing::HasSubstr;

TEST(LocaleName, IsTheSettingBeforeTheEnvironment) {
  EXPECT_EQ(ChooseLocale("de-DE", "fr_FR.UTF-8", "nb_NO.UTF-8"), "de-DE");
}

TEST(LocaleName, IsLcAllBeforeLang) { EXPECT_EQ(ChooseLocale("", "fr_FR.UTF-8", "nb_NO.UTF-8"), "fr-FR"); }

TEST(LocaleName, IsLangWhenLcAllIsEmpty) { EXPECT_EQ(ChooseLocale("", "", "nb_NO.UTF-8"), "nb-NO"); }

TEST(LocaleName, IsAmericanEnglishWhenNothingIsSaid) { EXPECT_EQ(ChooseLocale("", "", ""), "en-US"); }

TEST(LocaleName, ReadsTheEnvironmentOfTheProcess) {
  ASSERT_EQ(setenv("LC_ALL", "ja_JP.UTF-8", 1), 0);
  EXPECT_EQ(ChooseLocale(""), "ja-JP");
  ASSERT_EQ(unsetenv("LC_ALL"), 0);
  ASSERT_EQ(setenv("LANG", "fi_FI", 1), 0);
  EXPECT_EQ(ChooseLocale(""), "fi-FI");
  ASSERT_EQ(unsetenv("LANG"), 0);
  EXPECT_EQ(ChooseLocale(""), "en-US");
}

TEST(LocaleName, AcceptsTheFormsOfTagsAndOfTheEnvironment) {
  const std::pair<std::string_view, std::string_view> names[] = {
      {"en-US", "en-US"},
      {"en_US", "en-US"},
      {"en-us", "en-US"},
      {"EN_US", "en-US"},
      {"en_US.UTF-8", "en-US"},
      {"de", "de"},
      {"de_DE@euro", "de-DE"},
      {"de_DE.UTF-8@euro", "de-DE"},
      {"sr_RS@latin", "sr-Latn-RS"},
      {"sr@latin", "sr-Latn"},
      {"zh-TW", "zh-TW"},
      {"zh-Hant-TW", "zh-Hant-TW"},
      {"no-NO", "no-NO"},
      {"C", "en-US"},
      {"POSIX", "en-US"},
      {"C.UTF-8", "en-US"},
      {"C.utf8", "en-US"},
      {"en-US-POSIX", "en-US"},
  };
  for (const auto& [name, tag] : names) EXPECT_EQ(ChooseLocale(name, "", ""), tag) << name;
}

TEST(LocaleName, TakesAnUnknownNameOfTheEnvironmentAsAmericanEnglish) {
  for (const std::string_view name :
       {"xx_YY.UTF-8", "rubbish", "..", "de_DE/../..", "@", ".", "\xFF\xFE", "a b"}) {
    EXPECT_EQ(ChooseLocale("", name, "de_DE"), "en-US") << name;
  }
}

TEST(LocaleName, SaysWhatToWriteWhenTheSettingIsUnknown) {
  for (const std::string_view name :
       {"xx-YY", "klingon", "de-QQ", "de--DE", " ", "@euro", "../etc", "en-US-u-hc-h23"}) {
    try {
      ChooseLocale(name, "", "");
      ADD_FAILURE() << "accepted " << name;
    } catch (const platform::Error& error) {
      EXPECT_THAT(error.what(), HasSubstr("The locale \"" + std::string(name) + "\" is not known"));
      EXPECT_THAT(error.what(), HasSubstr("such as \"en-US\""));
    }
  }
}

TEST(LocaleName, MayBeOfAnyLength) {
  const std::string name(10'000, 'a');
  EXPECT_THROW(ChooseLocale(name, "", ""), platform::Error);
  EXPECT_EQ(ChooseLocale("", name, ""), "en-US");
}

}  // namespace
}  // namespace dralo::regional
