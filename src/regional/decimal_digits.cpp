#include "regional/decimal_digits.h"

#include <algorithm>

#include "dralo/error.h"
#include "text/decimal.h"

namespace dralo::regional {

DecimalDigits::DecimalDigits(std::string_view decimal) {
  const auto parts = text::SplitDecimal(decimal);
  if (!parts || parts->has_exponent ||
      parts->whole.size() + parts->fraction.size() > std::size_t{kMaxDigits}) {
    throw platform::Error("The number is none, or has too many digits");
  }
  is_negative_ = parts->is_negative;
  Take(parts->whole);
  point_ = count_;
  if (count_ == 0) {
    const std::size_t zeros = std::min(parts->fraction.find_first_not_of('0'), parts->fraction.size());
    point_ = -static_cast<int>(zeros);
  }
  Take(parts->fraction);
  DropZerosAtEnd();
}

void DecimalDigits::Take(std::string_view digits) {
  for (const char digit : digits) {
    if (count_ > 0 || digit != '0') digits_[static_cast<std::size_t>(count_++)] = digit;
  }
}

void DecimalDigits::DropZerosAtEnd() {
  while (count_ > 0 && digits_[static_cast<std::size_t>(count_ - 1)] == '0') --count_;
  if (count_ == 0) point_ = 0;
}

void DecimalDigits::Round(int decimals, Rounding rounding) {
  const int kept = point_ + decimals;
  if (kept >= count_) return;
  const char first_dropped = kept < 0 ? '0' : digits_[static_cast<std::size_t>(kept)];
  const bool is_half = first_dropped == '5' && kept + 1 == count_;
  const bool is_even = kept <= 0 || (digits_[static_cast<std::size_t>(kept - 1)] - '0') % 2 == 0;
  const bool up = is_half && rounding == Rounding::kHalfToEven ? !is_even : first_dropped >= '5';
  count_ = std::max(kept, 0);
  if (up && count_ == 0) {
    digits_[0] = '1';
    count_ = 1;
    ++point_;
  } else if (up) {
    Increment();
  }
  DropZerosAtEnd();
}

/// Adds one to the last digit.
void DecimalDigits::Increment() {
  int at = count_ - 1;
  while (at >= 0 && digits_[static_cast<std::size_t>(at)] == '9') --at;
  if (at < 0) {
    digits_[0] = '1';
    count_ = 1;
    ++point_;
    return;
  }
  ++digits_[static_cast<std::size_t>(at)];
  count_ = at + 1;
}

}  // namespace dralo::regional
