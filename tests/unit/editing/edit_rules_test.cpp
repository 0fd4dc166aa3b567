#include "editing/edit_rules.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dralo/error.h"
#include "hosts/cpp/environment.h"
#include "settings/setters.h"
#include "support/contains.h"
#include "unit/editing/edited_view.h"
#include "unit/editing/saving.h"
#include "unit/editing/shared_form.h"

namespace dralo::tests {

namespace {

using editing::ReadEditRules;

TEST(ReadEditRules, ReadsEveryRule) {
  const auto rules = ReadEditRules(
      "required, min=-0.50,max=100,minlength=2,maxlength=9,email,url,date>=today-7,"
      "date<=2026-12-31,pattern=[a-z]{1,3}");
  EXPECT_TRUE(rules.is_required);
  EXPECT_EQ(rules.min, "-0.5");
  EXPECT_EQ(rules.max, "100");
  EXPECT_EQ(rules.min_length, 2U);
  EXPECT_EQ(rules.max_length, 9U);
  EXPECT_TRUE(rules.is_email && rules.is_url && rules.is_day);
  EXPECT_EQ(rules.first_day->days_from_today, -7);
  EXPECT_EQ(rules.last_day->day, (platform::DateTime{.year = 2026, .month = 12, .day = 31}));
  EXPECT_EQ(rules.pattern, "[a-z]{1,3}");
}

TEST(ReadEditRules, EndsAPatternAtTheNextRule) {
  const auto rules = ReadEditRules("pattern=a{2,3},b,required");
  EXPECT_EQ(rules.pattern, "a{2,3},b");
  EXPECT_TRUE(rules.is_required);
}

TEST(ReadEditRules, NamesWhatIsNoRule) {
  for (const char* text : {"Required", "min", "min=x", "max=", "maxlength=-1", "date>today", "date>=tomorrow",
                           "date>=today+", "date>=today+x", "date<=2026-02-30", "needed"}) {
    try {
      ReadEditRules(text);
      ADD_FAILURE() << text;
    } catch (const platform::Error& error) {
      EXPECT_EQ(std::string(error.what()), "EditRules has no rule \"" + std::string(text) + "\"");
    }
  }
}

TEST(DayLimit, CountsFromToday) {
  const platform::DateTime today{.year = 2024, .month = 2, .day = 28};
  const auto day = [&](std::string_view rule) { return ReadEditRules(rule).first_day->DayAt(today); };
  EXPECT_EQ(day("date>=today"), today);
  EXPECT_EQ(day("date>=today+2"), (platform::DateTime{.year = 2024, .month = 3, .day = 1}));
  EXPECT_EQ(day("date>=today-59"), (platform::DateTime{.year = 2023, .month = 12, .day = 31}));
}

/// What a rule says against a text, in English; the value is that of a field of its kind.
std::string Broken(std::string_view rules, std::string_view text, const platform::VariantView& value) {
  EditedView view;
  std::string message;
  view.Rendered([&](state::Render& render) {
    message =
        editing::BrokenRule(render, ReadEditRules(rules), text, value, {.year = 2024, .month = 5, .day = 3});
  });
  return message;
}
std::string Broken(std::string_view rules, std::string_view text) { return Broken(rules, text, text); }

TEST(BrokenRule, TellsNumbersOutsideTheirLimits) {
  EXPECT_EQ(Broken("min=0,max=10", "0", std::int64_t{0}), "");
  EXPECT_EQ(Broken("min=0,max=10", "10", 10.0), "");
  EXPECT_EQ(Broken("min=0", "-1", std::int64_t{-1}), "This must be 0 or more.");
  EXPECT_EQ(Broken("max=9.5", "9,51", platform::DecimalView{"9.51"}), "This must be 9.5 or less.");
  EXPECT_EQ(Broken("min=1", "x"), "This is not a number.");
  EXPECT_EQ(Broken("min=10", "9"), "This must be 10 or more.");
}

TEST(BrokenRule, CountsCharacters) {
  EXPECT_EQ(Broken("minlength=2,maxlength=3", "ÆØÅ"), "");
  EXPECT_EQ(Broken("minlength=2", "Å"), "This must have 2 characters or more.");
  EXPECT_EQ(Broken("maxlength=2", "ÆØÅ"), "This must have 2 characters or less.");
}

TEST(BrokenRule, ComparesPatternsWithTheWholeText) {
  EXPECT_EQ(Broken("pattern=[A-Z]{2}|x", "AB"), "");
  for (const char* text : {"ABC", "aAB", "AB\n", "\nAB", "ab"}) {
    EXPECT_EQ(Broken("pattern=[A-Z]{2}|x", text), "This has not the form that is asked for.") << text;
  }
}

TEST(BrokenRule, KnowsAddresses) {
  for (const char* text : {"a@b", "first.last+tag@example.co.uk"})
    EXPECT_EQ(Broken("email", text), "") << text;
  for (const char* text : {"a", "a@", "@b", "a@b@c", "a b@c", "a@-b.c", "a@b..c", "a@b\n"}) {
    EXPECT_EQ(Broken("email", text), "This is not an e-mail address.") << text;
  }
  for (const char* text : {"http://a", "HTTPS://example.org/x?y#z"})
    EXPECT_EQ(Broken("url", text), "") << text;
  for (const char* text : {"example.org", "ftp://a", "javascript:alert(1)", "http://", "http://a b"}) {
    EXPECT_EQ(Broken("url", text), "This is not a web address.") << text;
  }
}

TEST(BrokenRule, TellsDaysOutsideTheirLimits) {
  const platform::DateTime today{.year = 2024, .month = 5, .day = 3, .hour = 1};
  EXPECT_EQ(Broken("date>=today,date<=today", "5/3/2024", today), "");
  EXPECT_EQ(Broken("date>=today+1", "5/3/2024", today), "This must be 5/4/2024 or later.");
  EXPECT_EQ(Broken("date<=2024-05-02", "5/3/2024", today), "This must be 5/2/2024 or earlier.");
  EXPECT_EQ(Broken("date", "soon"), "This is not a valid date.");
  EXPECT_EQ(Broken("date>=today", "2024-05-02"), "This must be 5/3/2024 or later.");
}

TEST(BrokenRule, LeavesAnEmptyTextToTheRuleThatRequiresOne) {
  const std::string_view others = "min=1,minlength=2,email,url,pattern=x,date>=today";
  EXPECT_EQ(Broken(others, "", platform::Null{}), "");
  EXPECT_EQ(Broken("required", "", platform::Null{}), "Fill in this field.");
  EXPECT_EQ(Broken("required", "", false), "Fill in this field.");
}

/// A page with rules for the columns ID, Name, City, Stock, Price, Since, Active and Notes.
struct RuledForm : SharedForm {
  RuledForm() { settings = {{"EditDetectConflicts", false}}; }
};

std::string RuledPage(SharedForm& shop, std::initializer_list<std::pair<int, std::string_view>> rules,
                      const Form& form) {
  shop.configure = [rules = std::vector(rules)](component::DbView& view) {
    for (const auto& [column, text] : rules)
      dralo::settings::SetEditRules(view.MutableSettings(), static_cast<std::int16_t>(column), text);
  };
  return form.empty() ? shop.Open() : shop.Page(form);
}

TEST(EditRules, AreAttributesOfTheControls) {
  RuledForm shop;
  const std::string page = RuledPage(shop,
                                     {{2, "required,maxlength=20,pattern=[\"A-Z]+"},
                                      {3, "email"},
                                      {4, "min=0,max=99"},
                                      {5, "min=0.5"},
                                      {6, "date>=2024-01-01,date<=2024-12-31"},
                                      {8, "required,minlength=2,maxlength=200"}},
                                     {});
  for (
      const char* text :
      {R"(name="Morvu1_Form_Name" value="Anna" maxlength="20" required pattern="[&quot;A-Z]+">)",
       R"(name="Morvu1_Form_City" value="Oslo" maxlength="40" inputmode="email">)",
       R"(name="Morvu1_Form_Stock" value="3" maxlength="20" inputmode="numeric" min="0" max="99">)",
       R"(name="Morvu1_Form_Price" value="2.5" maxlength="20" inputmode="decimal" min="0.5">)",
       R"(type="date" id="Morvu1_Form_Since" name="Morvu1_Form_Since" value="2024-05-03" min="2024-01-01" max="2024-12-31">)",
       R"(name="Morvu1_Form_Notes" required minlength="2" maxlength="200">first</textarea>)"}) {
    EXPECT_TRUE(Contains(page, text)) << text << "\n" << page;
  }
}

TEST(EditRules, RefuseAllThatIsWrongAtOnce) {
  RuledForm shop;
  const std::string page =
      RuledPage(shop, {{3, "pattern=[A-Z]+"}, {4, "max=99"}, {7, "required"}},
                Typed(shop.Open(), {{"City", "rome"}, {"Stock", "100"}, {"Price", "x"}, {"Active", ""}}));
  for (const char* text : {"This has not the form", "This must be 99 or less.", "This is not a number.",
                           "Fill in this field.", R"(value="rome")"}) {
    EXPECT_TRUE(Contains(page, text)) << text;
  }
  EXPECT_EQ(Row(shop.database), kAnna);
}

TEST(EditRules, LeaveUntouchedFieldsAlone) {
  RuledForm shop;
  RuledPage(shop, {{3, "pattern=[A-Z]+"}}, Typed(shop.Open(), {{"Stock", "4"}}));
  EXPECT_EQ(Row(shop.database, "ID=1", "City,Stock"), "'Oslo',4") << shop.error;
}

TEST(EditRules, TakeDaysInIsoForm) {
  static host::Environment german("de-DE");
  for (const bool detects : {false, true}) {
    RuledForm shop;
    shop.settings = {{"EditDetectConflicts", detects}};
    shop.database.Run("UPDATE T SET Since='2024-05-03 07:08:09'");
    RuledPage(shop, {{6, "date"}}, {});
    const std::string form = shop.Open("1", german);
    EXPECT_TRUE(Contains(form, R"(value="2024-05-03")"));
    shop.Page(Typed(form, {{"City", "Rome"}}), german);
    EXPECT_EQ(Row(shop.database, "ID=1", "City,Since"), "'Rome','2024-05-03 07:08:09'") << shop.error;
    shop.Page(Typed(shop.Open("1", german), {{"Since", "2024-06-04"}}), german);
    EXPECT_EQ(Row(shop.database, "ID=1", "Since"), "'2024-06-04'") << shop.error;
  }
}

TEST(EditRules, ThatAreNoneSaveNothing) {
  RuledForm shop;
  RuledPage(shop, {{3, "needed"}}, Typed(shop.Open(), {{"City", "Rome"}}));
  EXPECT_TRUE(Contains(shop.error, "EditRules has no rule \"needed\"")) << shop.error;
  EXPECT_EQ(Row(shop.database), kAnna);
}

}  // namespace

}  // namespace dralo::tests
