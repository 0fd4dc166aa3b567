#pragma once

#include <array>
#include <string>
#include <string_view>

#include "dralo/field.h"
#include "dralo/variant.h"
#include "state/render.h"
#include "text/blanks.h"

namespace dralo::cells {

/// The value that a format function works on: the field's text without anything added for HTML, or what that
/// text spells. For one cell; texts are in the object, in the record or in `render.scratch`.
class FormatInput {
 public:
  FormatInput(state::Render& render, platform::Field& field);
  FormatInput(const FormatInput&) = delete;
  FormatInput& operator=(const FormatInput&) = delete;

  /// Whether there is nothing to format: the text is empty or blank.
  bool IsBlank() const;

  std::string_view Text();

  /// A date-time, a whole number or a boolean as such when the field holds one, else the text.
  const platform::VariantView& Value() const { return value_; }

  /// A boolean is -1 or 0. Throws platform::Error when the text is no number.
  platform::DecimalView Number();

  /// Throws platform::Error when the text is no date.
  platform::DateTime Date();

  const platform::ValueFormatting& Regional() const { return render_.Regional(); }

 private:
  [[gnu::always_inline]] inline bool TakeDirectly();

  state::Render& render_;
  platform::Field& field_;
  platform::VariantView value_;
  std::string number_;
  std::array<char, 24> digits_;
};

}  // namespace dralo::cells
