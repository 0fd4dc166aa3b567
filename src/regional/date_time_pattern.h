#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "dralo/date_time.h"

namespace dralo::regional {

/// One part of a date-time that is written as digits.
enum class DateTimePart : std::uint8_t { kDay, kMonth, kYear, kHour24, kHour12, kMinute, kSecond };

/// A date-time form as a list of parts and literal texts, made once and written often.
class DateTimePattern {
 public:
  /// The number of `part`, filled with zeros up to `width` digits.
  void Add(DateTimePart part, int width);

  void Add(const DateTimePattern& pattern);

  void AddLiteral(std::string_view text);

  /// Adds one of the two texts, depending on the hour.
  void AddDayHalf(std::string_view morning, std::string_view afternoon);

  /// The most bytes that Write() takes.
  std::size_t MaxSize() const { return max_size_; }

  /// Writes `time` to `to`, which has room for MaxSize() bytes, and returns the end. Any content of `time`
  /// can be written, even if it is no day of the calendar.
  char* Write(const platform::DateTime& time, char* to) const;

 private:
  enum class Kind : std::uint8_t { kNumber, kLiteral, kMorning, kAfternoon };

  /// Texts are kept in the token, so that copying one is a single move; longer ones take several tokens. The
  /// text of a number stands behind it.
  static constexpr std::size_t kTextSize = 8;

  struct Token {
    Kind kind = Kind::kNumber;
    DateTimePart part = DateTimePart::kDay;
    std::uint8_t width = 0;
    std::uint8_t text_size = 0;
    std::array<char, kTextSize> text = {};
  };

  void AddText(Kind kind, std::string_view text);

  std::vector<Token> tokens_;
  std::size_t max_size_ = kTextSize;  ///< A token's text is always copied with all its bytes.
};

}  // namespace dralo::regional
