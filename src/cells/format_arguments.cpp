#include "cells/format_arguments.h"

#include "dralo/error.h"
#include "state/request_number.h"
#include "text/blanks.h"
#include "text/letter_case.h"
#include "text/list.h"

namespace dralo::cells {

FormatArguments::FormatArguments(const platform::ValueFormatting& formatting, std::string_view text,
                                 std::string_view delimiter)
    : formatting_(formatting), items_(text::Split(text, delimiter)) {
  for (std::string& item : items_) item = std::string(text::TrimBlanks(item));
  name_ = text::ToUpper(items_[0]);
}

std::int32_t FormatArguments::Number(std::size_t number, std::int32_t least, std::int32_t most) const {
  const std::string what = "Argument " + std::to_string(number) + " of " + name_;
  const std::int32_t value = state::ToInt32(formatting_, std::string_view(items_[number]), what);
  if (value >= least && value <= most) return value;
  throw platform::Error(what + " must be from " + std::to_string(least) + " to " + std::to_string(most));
}

std::int32_t FormatArguments::NumberOr(std::size_t number, std::int32_t neutral, std::int32_t least,
                                       std::int32_t most) const {
  return number > Count() || items_[number].empty() ? neutral : Number(number, least, most);
}

platform::WeekRule FormatArguments::Weeks(std::size_t number) const {
  const platform::WeekRule usual;
  return {NumberOr(number, usual.first_day, 0, 7), NumberOr(number + 1, usual.first_week, 0, 3)};
}

}  // namespace dralo::cells
