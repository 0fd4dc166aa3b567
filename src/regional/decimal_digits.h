#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace dralo::regional {

enum class Rounding { kHalfAwayFromZero, kHalfToEven };

/// An exact decimal number that is to be written: it is scaled, rounded and then read digit by digit.
class DecimalDigits {
 public:
  static constexpr int kMaxDigits = 1200;

  /// Takes the text of a platform::Decimal. Throws platform::Error when it is no decimal or has too many
  /// digits.
  explicit DecimalDigits(std::string_view decimal);

  bool IsNegative() const { return is_negative_; }
  bool IsZero() const { return count_ == 0; }

  /// Multiplies by ten to the power of `power`.
  void Scale(int power) { point_ += IsZero() ? 0 : power; }

  /// Keeps `decimals` digits after the decimal point; a negative number rounds before it.
  void Round(int decimals, Rounding rounding);

  /// Digits before the decimal point without leading zeros: 0 for a number below 1, negative for one below
  /// 0.1.
  int Point() const { return point_; }
  int WholeDigits() const { return point_ > 0 ? point_ : 0; }

  /// Digits after the decimal point without trailing zeros.
  int Decimals() const { return count_ > point_ ? count_ - point_ : 0; }

  /// The digit for ten to the power of `power`: 0 for the ones, -1 for the tenths.
  char DigitAt(int power) const {
    const int index = point_ - 1 - power;
    return index >= 0 && index < count_ ? digits_[static_cast<std::size_t>(index)] : '0';
  }

 private:
  void Take(std::string_view digits);
  void DropZerosAtEnd();
  void Increment();

  // The number is 0.d1d2d3... times ten to the power of `point_`; d1 is not 0.
  std::array<char, kMaxDigits> digits_;  // Not filled with zeros: only the first `count_` say something.
  int count_ = 0;
  int point_ = 0;
  bool is_negative_ = false;
};

}  // namespace dralo::regional
