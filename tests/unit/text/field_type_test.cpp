#include "platform/field_type.h"

#include <gtest/gtest.h>

#include <set>

namespace dralo::platform {
namespace {

using platform::TypeCode;

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
