#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace dralo::tests {

/// Whether the two are equal; else their first difference, with what stands around it.
inline testing::AssertionResult SameHtml(const char* actual_text, const char* expected_text,
                                         std::string_view actual, std::string_view expected) {
  if (actual == expected) return testing::AssertionSuccess();
  constexpr std::size_t kAround = 80;
  const auto at = static_cast<std::size_t>(std::ranges::mismatch(actual, expected).in1 - actual.begin());
  const std::size_t from = at - std::min(at, kAround);
  const auto line = std::ranges::count(actual.substr(0, at), '\n') + 1;
  return testing::AssertionFailure() << actual_text << " differs from " << expected_text << " in line "
                                     << line << ", byte " << at << ". It is\n..."
                                     << actual.substr(from, 2 * kAround) << "...\nand should be\n..."
                                     << expected.substr(from, 2 * kAround) << "...";
}

}  // namespace dralo::tests

/// EXPECT_EQ for pages.
#define EXPECT_HTML(actual, expected) EXPECT_PRED_FORMAT2(::dralo::tests::SameHtml, actual, expected)
