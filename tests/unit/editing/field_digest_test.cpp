#include "editing/field_digest.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "support/records.h"
#include "support/rendering.h"

namespace dralo::editing {
namespace {

using platform::TypeCode;
using platform::VariantView;

FieldDigest::Value Digest(const VariantView& value, TypeCode type = TypeCode::kVarWideChar) {
  return DigestOfValue("key", "Name", type, value);
}

TEST(DigestOfValue, TellsKindsApart) {
  const std::uint8_t byte = '1';
  const std::vector<VariantView> values = {platform::Null{},      true,
                                           std::int64_t{1},       platform::DecimalView{"1"},
                                           std::string_view("1"), platform::BytesView{&byte, 1},
                                           std::string_view(""),  platform::DateTime{.year = 1}};
  std::set<FieldDigest::Value> digests;
  for (const VariantView& value : values) digests.insert(Digest(value));
  EXPECT_EQ(digests.size(), values.size());
}

TEST(DigestOfValue, TellsRecordsAndFieldsApart) {
  const VariantView value = std::string_view("x");
  const auto digest = [&](std::string_view key, std::string_view name) {
    return DigestOfValue(key, name, TypeCode::kVarWideChar, value);
  };
  EXPECT_EQ(digest("1", "a"), digest("1", "a"));
  EXPECT_NE(digest("1", "a"), digest("2", "a"));
  EXPECT_NE(digest("1", "a"), digest("1", "b"));
}

TEST(DigestOfValue, KeepsItsPartsApart) {
  const auto digest = [](std::string_view key, std::string_view name, std::string_view value) {
    return DigestOfValue(key, name, TypeCode::kVarWideChar, value);
  };
  EXPECT_NE(digest("1a", "b", "c"), digest("1", "ab", "c"));
  EXPECT_NE(digest("1", "a", "5c"), digest("1", "a5", "c"));
  EXPECT_NE(digest("", "ab", ""), digest("ab", "", ""));
}

TEST(DigestOfValue, TakesNumbersWithFractionsByTheirValue) {
  for (const VariantView& same :
       std::initializer_list<VariantView>{2.5, platform::DecimalView{"2.5"}, platform::DecimalView{"2.500"},
                                          platform::DecimalView{"02.50"}}) {
    EXPECT_EQ(Digest(same, TypeCode::kDecimal), Digest(2.5, TypeCode::kDouble));
  }
  EXPECT_EQ(Digest(std::int64_t{3}, TypeCode::kDecimal), Digest(platform::DecimalView{"3.00"}));
  EXPECT_NE(Digest(0.1 + 0.2), Digest(0.3));
  EXPECT_NE(Digest(platform::DecimalView{"0.30000000000000001"}), Digest(0.3));
}

TEST(DigestOfValue, SeesWhatNoControlShows) {
  const platform::DateTime day{.year = 2024, .month = 5, .day = 3, .hour = 7};
  platform::DateTime later = day;
  later.nanosecond = 1;
  EXPECT_NE(Digest(day, TypeCode::kDbTimestamp), Digest(later, TypeCode::kDbTimestamp));
  EXPECT_NE(Digest(std::string_view("\xFF")), Digest(std::string_view("\xFE")));
  EXPECT_NE(Digest(std::string_view("a")), Digest(std::string_view("a ")));
}

/// Whoever changes what is hashed must change the version too: forms that are open meanwhile would be taken
/// for changed records.
TEST(DigestOfValue, StaysWhatItIs) {
  const FieldDigest digest{
      .value = DigestOfValue("1", "Name", TypeCode::kVarWideChar, std::string_view("Anna")),
      .text = DigestOfText("Anna", true)};
  EXPECT_EQ(DigestText(digest), "kpWtlvzKVEi1c1sIYj7HIL9PzNYWJRtn");
}

TEST(DigestOfText, SeesTheTextAsABrowserHoldsIt) {
  EXPECT_EQ(DigestOfText("a\nb", false), DigestOfText("a\r\nb", false));
  EXPECT_EQ(DigestOfText("a\rb", true), DigestOfText("ab", true));
  EXPECT_EQ(DigestOfText("\xFF", true), DigestOfText("\xEF\xBF\xBD", true));
  EXPECT_NE(DigestOfText("a\nb", false), DigestOfText("ab", false));
  EXPECT_NE(DigestOfText("a", true), DigestOfText("a ", true));
}

TEST(DigestOfTick, TellsTheTwoApart) { EXPECT_NE(DigestOfTick(true), DigestOfTick(false)); }

TEST(DigestText, ComesBack) {
  const FieldDigest digest{.value = Digest(std::int64_t{7}), .text = DigestOfText("7", true)};
  const std::string text = DigestText(digest);
  EXPECT_EQ(text.size(), 32U);
  EXPECT_EQ(ReadDigest(text), digest);
}

TEST(DigestText, IsNotReadFromAnythingElse) {
  const std::string text = DigestText({});
  for (const std::string& other :
       {std::string(), text.substr(1), text + "A", text.substr(4), "=" + text.substr(1), " " + text}) {
    EXPECT_EQ(ReadDigest(other), std::nullopt) << other;
  }
}

TEST(RecordKeyOf, IsMadeOfTheKeysInTheirOrder) {
  tests::Records records("CREATE TABLE T(A TEXT, B TEXT, C INT); INSERT INTO T VALUES('x', 'yz', 1)");
  const auto key = [&](std::string_view names) {
    settings::Settings settings;
    settings.EditPrimaryKeys = names;
    return RecordKeyOf(settings, *records);
  };
  EXPECT_EQ(key("A, b"), key("a,B"));
  EXPECT_NE(key("A,B"), key("B,A"));
  EXPECT_EQ(key("A,NotThere"), key("A"));
  EXPECT_NE(key("A"), key("B"));
}

TEST(RecordKeyOf, KeepsItsPartsApart) {
  tests::Records records(
      "CREATE TABLE T(A TEXT, B TEXT, C TEXT, D TEXT); INSERT INTO T VALUES('x','yz','xy','z')");
  settings::Settings settings;
  settings.EditPrimaryKeys = "A,B";
  const std::string one = RecordKeyOf(settings, *records);
  settings.EditPrimaryKeys = "C,D";
  EXPECT_NE(RecordKeyOf(settings, *records), one);
}

}  // namespace
}  // namespace dralo::editing
