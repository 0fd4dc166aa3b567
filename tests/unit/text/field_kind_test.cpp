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

/// The codes for which that is true.
std::set<int> CodesOf(bool (*is_of_type)(TypeCode)) {
  std::set<int> codes;
  for (int code = -10; code <= 300; ++code) {
    if (is_of_type(static_cast<TypeCode>(code))) codes.insert(code);
  }
  return codes;
}

TEST(FieldType, IsNumericForExactlyTheCodesOfNumbersAndBooleans) {
  EXPECT_EQ(CodesOf(IsNumericFieldType), (std::set{2, 3, 4, 5, 6, 11, 14, 16, 17, 18, 19, 20, 21, 131, 139}));
}

TEST(FieldType, IsFractionalForNumbersThatMayHaveAFraction) {
  EXPECT_EQ(CodesOf(IsFractionalFieldType), (std::set{4, 5, 6, 14, 131, 139}));
}

TEST(FieldType, IsAMemoForLongTextOfBothWidths) { EXPECT_EQ(CodesOf(IsMemoFieldType), (std::set{201, 203})); }

TEST(FieldType, IsADateButNotForAPureTimeOfDay) {
  EXPECT_EQ(CodesOf(IsDateFieldType), (std::set{7, 133, 135}));
}

}  // namespace
}  // namespace dralo::platform
