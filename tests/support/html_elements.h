#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dralo::tests {

/// A tag of a page as a browser reads it, and the text behind it up to the next tag. The views live as long
/// as the page.
struct Element {
  std::string_view name;  ///< As written; that of an end tag begins with "/".
  std::vector<std::pair<std::string_view, std::string>> attributes;  ///< Names as written, values decoded.
  std::string_view text;                                             ///< As written.

  bool Is(std::string_view wanted) const { return name == wanted; }
  bool Has(std::string_view attribute) const;

  /// The value of the attribute; empty when it is missing.
  std::string_view operator[](std::string_view attribute) const;
};

/// The tags of `html` in their order. Never fails: what no browser would take for a tag is text. In values,
/// "&quot;" alone is decoded: the component replaces nothing else.
std::vector<Element> Elements(std::string_view html);

}  // namespace dralo::tests
