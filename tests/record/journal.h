#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "record/product.h"

namespace dralo::record {

/// All that is observable of one page, as text.
class Journal {
 public:
  /// Where the database lies must not get into the text: wherever `place` occurs stands "FOLDER".
  explicit Journal(std::string place) : place_(std::move(place)) {}

  /// One line: what it is, and its text.
  void Add(std::string_view what, std::string_view text);
  void AddValue(std::string_view what, const Variant& value);
  void AddProperty(std::string_view what, const PropertyValue& value);

  const std::string& Text() const { return text_; }

 private:
  std::string place_;
  std::string text_;
};

/// FNV-1a with 64 bits.
std::uint64_t Hash(std::string_view text);

/// Sixteen hexadecimal digits.
std::string Hexadecimal(std::uint64_t number);

}  // namespace dralo::record
