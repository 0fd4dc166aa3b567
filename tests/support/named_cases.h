#pragma once

#include <gtest/gtest.h>

#include <string>

namespace dralo::tests {

/// Names the cases of INSTANTIATE_TEST_SUITE_P after the member `name` of their rows, a sentence.
inline constexpr auto kByName = [](const auto& row) { return std::string(row.param.name); };

}  // namespace dralo::tests
