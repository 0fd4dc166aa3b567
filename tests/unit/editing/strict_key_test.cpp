#include "editing/strict_key.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "state/named_field.h"
#include "support/view_page.h"

namespace dralo::editing {
namespace {

using platform::Variant;

/// The columns of a table with one of each type, which holds one record.
struct StrictKey : testing::Test, tests::ViewPage {
  std::shared_ptr<platform::Recordset> records;

  StrictKey()
      : ViewPage(
            "CREATE TABLE T(Nr INTEGER, Price DECIMAL(10,2), Weight REAL, Day DATE, At TIME, Flag BOOLEAN, "
            "Name VARCHAR(9), Bytes BLOB, Any);"
            "INSERT INTO T VALUES(1,1.5,0.1,'2024-02-03','04:05:06',1,'a',x'00',1)"),
        records(OpenRecordset("SELECT * FROM T")) {}

  std::optional<KeyTerm> Term(std::string_view column, std::string_view text) {
    return StrictKeyTerm(tests::TestEnvironment().Regional(), *state::FindField(*records, column), "c", text);
  }

  bool IsNone(std::string_view column, std::string_view text) { return !Term(column, text); }

  Variant Value(std::string_view column, std::string_view text) {
    const auto term = Term(column, text);
    return term && term->value ? *term->value : Variant(std::string("no value"));
  }
};

TEST_F(StrictKey, OfWholeNumbersHasDigitsOnly) {
  EXPECT_EQ(Term("Nr", "12")->condition, "c = ?");
  EXPECT_EQ(Value("Nr", "12"), Variant(std::int64_t{12}));
  EXPECT_EQ(Value("Nr", "-9223372036854775808"), Variant(std::int64_t{INT64_MIN}));
  for (const char* text : {"", "-", "+1", "1.0", "1e1", " 1", "1 ", "0x1", "1 OR 1=1", "(1)", "\xD9\xA1",
                           "9223372036854775808", "00000000000000000001"}) {
    EXPECT_TRUE(IsNone("Nr", text)) << text;
  }
}

TEST_F(StrictKey, OfFractionsIsWhatALinkShows) {
  EXPECT_FALSE(IsNone("Price", "1.5"));
  EXPECT_FALSE(IsNone("Weight", "0.1"));
  for (const char* text : {"", "1,5", "1.5 OR 1=1", "one", ".5.", "1.5.1"}) {
    EXPECT_TRUE(IsNone("Weight", text)) << text;
    EXPECT_TRUE(IsNone("Price", text)) << text;
  }
}

TEST_F(StrictKey, OfDatesIsWhatALinkShows) {
  EXPECT_FALSE(IsNone("Day", "2024-02-03"));
  EXPECT_FALSE(IsNone("At", "04:05:06"));
  for (const char* text :
       {"", "2/3/2024", "2024-2-3", "2024-02-30", "2024-02-03 ", "now", "2024-02-03' OR '1'='1"}) {
    EXPECT_TRUE(IsNone("Day", text)) << text;
  }
  for (const char* text : {"", "4:05:06", "04:05", "25:00:00"}) EXPECT_TRUE(IsNone("At", text)) << text;
}

TEST_F(StrictKey, OfBooleansIsADigit) {
  EXPECT_FALSE(IsNone("Flag", "1"));
  EXPECT_FALSE(IsNone("Flag", "0"));
  for (const char* text : {"", "True", "2", "-1", "00"}) EXPECT_TRUE(IsNone("Flag", text)) << text;
}

TEST_F(StrictKey, OfTextsIsAnyTextAndNeverANumber) {
  for (const char* text : {"", "0", "1 OR 1=1", " a ", "O'Neil"})
    EXPECT_EQ(Value("Name", text), Variant(std::string(text)));
}

TEST_F(StrictKey, OfTextsHasNoZeroByte) { EXPECT_TRUE(IsNone("Name", std::string_view("a\0", 2))); }

TEST_F(StrictKey, WithoutATypeIsComparedAsText) {
  EXPECT_EQ(Term("Any", "1")->condition, "CAST(c AS TEXT) = ?");
  EXPECT_EQ(Value("Any", "1"), Variant(std::string("1")));
}

TEST_F(StrictKey, IsNoneForBytes) { EXPECT_TRUE(IsNone("Bytes", "")); }

/// What is not bound has no sign of the request in it but digits.
TEST_F(StrictKey, IsBoundOrHasDigits) {
  for (const char* column : {"Nr", "Price", "Weight", "Day", "At", "Flag", "Name", "Any"}) {
    for (const char* text : {"1'--", "2024-02-03'--", "04:05:06'--", "'", "\\'", "?"}) {
      const auto term = Term(column, text);
      if (term) {
        EXPECT_TRUE(term->value.has_value()) << column;
        EXPECT_EQ(term->condition.find('\''), std::string::npos) << column;
      }
    }
  }
}

}  // namespace
}  // namespace dralo::editing
