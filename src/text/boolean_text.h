#pragma once

#include <string_view>

namespace dralo::text {

/// The text of a boolean in forms and in stored texts, the same under all regional settings.
constexpr std::string_view BooleanText(bool flag) { return flag ? "True" : "False"; }

}  // namespace dralo::text
