#include "platform/field_kind.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace dralo::platform {
namespace {

TEST(KindOf, IsTextForCodesWithoutAKindOfTheirOwn) {
  std::map<FieldKind, std::set<int>> codes;
  for (int code = -10; code <= 300; ++code) codes[KindOf(static_cast<TypeCode>(code))].insert(code);

  EXPECT_EQ(codes[FieldKind::kWholeNumber], (std::set{2, 3, 16, 17, 18, 19, 20, 21}));
  EXPECT_EQ(codes[FieldKind::kExactNumber], (std::set{6, 14, 131, 139}));
  EXPECT_EQ(codes[FieldKind::kFloatingPoint], (std::set{4, 5}));
  EXPECT_EQ(codes[FieldKind::kBoolean], std::set{11});
  EXPECT_EQ(codes[FieldKind::kDate], (std::set{7, 133, 135}));
  EXPECT_EQ(codes[FieldKind::kTime], std::set{134});
  EXPECT_EQ(codes[FieldKind::kMemo], (std::set{201, 203}));
  EXPECT_EQ(codes[FieldKind::kGuid], std::set{72});
  EXPECT_EQ(codes[FieldKind::kBinary], (std::set{128, 204}));
  EXPECT_EQ(codes[FieldKind::kLongBinary], std::set{205});
  EXPECT_EQ(codes[FieldKind::kText].size(), 311U - 25U);
}

TEST(IsNumericFieldType, IsTrueForExactlyTheCodesOfNumbersAndBooleans) {
  const std::set<int> numeric = {2, 3, 4, 5, 6, 11, 14, 16, 17, 18, 19, 20, 21, 131, 139};
  for (int code = -10; code <= 300; ++code) {
    EXPECT_EQ(IsNumericFieldType(static_cast<TypeCode>(code)), numeric.contains(code)) << code;
  }
}

TEST(IsFractionalFieldType, IsTrueForNumbersThatMayHaveAFraction) {
  const std::set<int> fractional = {4, 5, 6, 14, 131, 139};
  for (int code = -10; code <= 300; ++code) {
    EXPECT_EQ(IsFractionalFieldType(static_cast<TypeCode>(code)), fractional.contains(code)) << code;
  }
}

TEST(IsMemoFieldType, IsTrueForLongTextOfBothWidths) {
  for (int code = -10; code <= 300; ++code) {
    EXPECT_EQ(IsMemoFieldType(static_cast<TypeCode>(code)), code == 201 || code == 203) << code;
  }
}

TEST(IsDateFieldType, IsTrueForDatesButNotForAPureTimeOfDay) {
  for (int code = -10; code <= 300; ++code) {
    EXPECT_EQ(IsDateFieldType(static_cast<TypeCode>(code)), code == 7 || code == 133 || code == 135) << code;
  }
}

}  // namespace
}  // namespace dralo::platform
