#pragma once

#include <string_view>
#include <vector>

#include "dralo/date_time.h"
#include "regional/locale_facts.h"

namespace dralo::regional {

/// Reads times of day: "10:30", "10:30:15", "10:30:15.25" (nine digits count), "10:30 PM", "3 PM". The half
/// of the day is in the locale's language or English, after or before the time; the hour must then be from 0
/// to 12.
class TimeRecognizer {
 public:
  explicit TimeRecognizer(const LocaleFacts& facts);

  /// Takes the time at the start of `rest`, whose blanks are plain (text::PlainWhiteSpace), and sets it in
  /// `time`. False, with both in any state, when there is none.
  bool Take(std::string_view& rest, platform::DateTime& time) const { return Take(rest, false, time); }

  /// The same, but "." may stand for ":" where the locale writes that. Without a date in front that would be
  /// a number or a date.
  bool TakeAfterDate(std::string_view& rest, platform::DateTime& time) const {
    return Take(rest, dots_separate_, time);
  }

 private:
  bool Take(std::string_view& rest, bool dots_separate, platform::DateTime& time) const;

  /// Takes the half of the day at the start of `rest`; -1 when there is none.
  int TakeDayHalf(std::string_view& rest) const;

  std::vector<Spelling> day_halves_;
  bool dots_separate_;
};

}  // namespace dralo::regional
