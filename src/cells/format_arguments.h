#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/value_formatting.h"

namespace dralo::cells {

/// The text of a format function, split into its name and its arguments.
class FormatArguments {
 public:
  /// Splits `text` at `delimiter`, and removes blanks around the items.
  FormatArguments(const platform::ValueFormatting& formatting, std::string_view text,
                  std::string_view delimiter);

  /// In capital letters.
  const std::string& Name() const { return name_; }

  /// How many arguments there are.
  std::size_t Count() const { return items_.size() - 1; }

  /// The argument as it was written, counted from 1.
  const std::string& Text(std::size_t number) const { return items_[number]; }

  /// The argument as a whole number, fractions rounded. Throws platform::Error when it is no number, or is
  /// below `least` or above `most`.
  std::int32_t Number(std::size_t number, std::int32_t least, std::int32_t most) const;

  /// The same; `neutral` for an argument that is missing or empty.
  std::int32_t NumberOr(std::size_t number, std::int32_t neutral, std::int32_t least,
                        std::int32_t most) const;

  /// First day of the week and first week of the year: argument `number` and the one after it.
  platform::WeekRule Weeks(std::size_t number) const;

  const platform::ValueFormatting& Regional() const { return formatting_; }

 private:
  const platform::ValueFormatting& formatting_;
  std::vector<std::string> items_;
  std::string name_;
};

}  // namespace dralo::cells
