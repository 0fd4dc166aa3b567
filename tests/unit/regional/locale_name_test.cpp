#include "regional/locale_name.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dralo/error.h"

namespace dralo::regional {
namespace {

using ::testing::HasSubstr;

TEST(LocaleName, IsTheSettingThenLcAllThenLangThenAmericanEnglish) {
  EXPECT_EQ(ChooseLocale("de-DE", "fr_FR.UTF-8", "nb_NO.UTF-8"), "de-DE");
  EXPECT_EQ(ChooseLocale("", "fr_FR.UTF-8", "nb_NO.UTF-8"), "fr-FR");
  EXPECT_EQ(ChooseLocale("", "", "nb_NO.UTF-8"), "nb-NO");
  EXPECT_EQ(ChooseLocale("", "", ""), "en-US");
}

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
  const std::pair<std::string_view, std::vector<std::string_view>> names[] = {
      {"en-US", {"en-US", "en_US", "en-us", "EN_US", "en_US.UTF-8"}},
      {"de", {"de"}},
      {"de-DE", {"de_DE@euro", "de_DE.UTF-8@euro"}},
      {"sr-Latn-RS", {"sr_RS@latin"}},
      {"sr-Latn", {"sr@latin"}},
      {"zh-TW", {"zh-TW"}},
      {"zh-Hant-TW", {"zh-Hant-TW"}},
      {"no-NO", {"no-NO"}},
      {"en-US", {"C", "POSIX", "C.UTF-8", "C.utf8", "en-US-POSIX"}},
  };
  for (const auto& [tag, forms] : names) {
    for (const std::string_view form : forms) EXPECT_EQ(ChooseLocale(form, "", ""), tag) << form;
  }
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
