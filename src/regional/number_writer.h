#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "dralo/variant.h"

namespace dralo::regional {

/// Standard texts of numbers: without grouping and without trailing zeros in the fraction. A result is in
/// `scratch`, is a constant, or, for a decimal, is part of the value; `scratch` may grow and is never made
/// smaller.
class NumberWriter {
 public:
  explicit NumberWriter(char decimal_point) : decimal_point_(decimal_point) {}

  std::string_view Write(std::int64_t number, std::string& scratch) const;

  /// Up to 15 significant digits. Plain from 0.00001 up to 999999999999999; below and above, judged after
  /// rounding, with an exponent of at least two digits: "1E-06", "1.5E+15". Negative zero is "0"; values that
  /// are no numbers are "NaN", "Infinity" and "-Infinity".
  std::string_view Write(double number, std::string& scratch) const;

  /// All digits, however many. A text that is no decimal comes back unchanged.
  std::string_view Write(platform::DecimalView number, std::string& scratch) const;

 private:
  char decimal_point_;
};

}  // namespace dralo::regional
