#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "regional/decimal_digits.h"
#include "regional/number_forms.h"

namespace dralo::regional {

/// One section of a number pattern: 0 # . , % E+ E- e+ e-, "literals" and \x; each comma after the last
/// digit, or the last before the decimal point, divides by a thousand. All other characters stand for
/// themselves.
class NumberSection {
 public:
  explicit NumberSection(std::string_view pattern);

  /// `number` scaled and rounded, half away from zero, as the section shows it.
  DecimalDigits Prepared(DecimalDigits number) const;

  /// Writes, without its sign, a number that Prepared() has returned.
  void Write(DecimalDigits number, const NumberForms& forms, std::string& to) const;

 private:
  enum class Kind : std::uint8_t { kLiteral, kDigit, kPoint, kExponent };

  struct Token {
    Kind kind = Kind::kLiteral;
    int power = 0;             ///< Of a digit: ten to this power.
    bool is_required = false;  ///< Of a digit: written even when the number has none there.
    std::string text = {};     ///< Of a literal; of an exponent "E+", "E-", "e+" or "e-".
    int width = 0;             ///< Of an exponent: its least number of digits.
  };

  void AddLiteral(std::string_view text);
  void AddDigit(char placeholder);
  bool TakeExponent(std::string_view& rest);
  void TakeCommas(std::string_view& rest);
  void Finish();
  int Normalize(DecimalDigits& number) const;
  static void PutExponent(const Token& token, int exponent, std::string& to);
  void PutDigits(const Token& token, const DecimalDigits& number, bool is_first, const NumberForms& forms,
                 std::string& to) const;
  void PutDigit(const DecimalDigits& number, int power, const NumberForms& forms, std::string& to) const;

  std::vector<Token> tokens_;
  int whole_ = 0;  ///< Placeholders before the decimal point.
  int decimals_ = 0;
  int power_ = 0;  ///< The number is written times ten to this power.
  bool has_point_ = false;
  bool has_exponent_ = false;
  bool has_groups_ = false;
};

/// Sections for positive numbers, negative ones, zero and Null. The first one serves for those that are
/// missing or empty, with a "-" for negative numbers. The section for Null is not used, because cells without
/// a value are not formatted.
class NumberPattern {
 public:
  explicit NumberPattern(std::string_view pattern);

  void Write(std::string_view decimal, const NumberForms& forms, std::string& to) const;

 private:
  const NumberSection& ForZero() const { return sections_[zero_]; }

  std::vector<NumberSection> sections_;
  std::size_t negative_ = 0;
  std::size_t zero_ = 0;
};

}  // namespace dralo::regional
