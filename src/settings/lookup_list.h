#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::settings {

/// The lookups of a view's edit fields, each one text: field name, lookup table, link field, display field,
/// order and "1" or "0" for whether an empty choice is allowed, joined by ",". Every lookup adds two entries,
/// of which the second stays empty.
class LookupList {
 public:
  struct Lookup {
    std::string_view field_name;
    std::string_view table;
    std::string_view link_field;
    std::string_view display_field;
    std::string_view order_by;
    bool allow_nulls = false;
  };

  void Add(const Lookup& lookup);

  /// The whole text of the field's first lookup, found in any letter case; empty when there is none.
  std::string_view Find(std::string_view field_name) const;

  /// The index of the last entry, -1 while there is none.
  std::int32_t UpperBound() const { return static_cast<std::int32_t>(entries_.size()) - 1; }

  const std::vector<std::string>& Entries() const { return entries_; }

 private:
  std::vector<std::string> entries_;
};

}  // namespace dralo::settings
