#pragma once

#include <string_view>

namespace dralo::html {

/// Where a text stands in a page, because browsers read it by different rules.
enum class TextPlace {
  kAttribute,  ///< In an attribute's value, between double quotes.
  kElement,    ///< Between a start tag and an end tag.
};

/// Whether a browser may read a character reference, such as "&amp;" or "&copy", at the start of `text`,
/// which begins with "&". Any name with a semicolon counts, whether HTML knows it or not.
bool BeginsCharacterReference(std::string_view text, TextPlace place);

}  // namespace dralo::html
