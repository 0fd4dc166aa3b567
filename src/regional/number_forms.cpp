#include "regional/number_forms.h"

namespace dralo::regional {

using platform::NumberOptions;
using platform::Tristate;

NumberForms::NumberForms(const LocaleFacts& facts)
    : decimal_point_(facts.decimal_point),
      groups_in_pairs_(facts.groups_in_pairs),
      grouping_(facts.grouping),
      kinds_{Kind{{LocaleFacts::Affixes{}, facts.negative_number}, 2, 0},
             Kind{facts.currency, facts.currency_digits, 0}, Kind{facts.percent, 2, 2}} {}

std::string_view NumberForms::Write(std::string_view decimal, platform::NumberKind kind,
                                    const NumberOptions& options, std::string& scratch) const {
  const Kind& form = kinds_[static_cast<std::size_t>(kind)];
  const int digits = options.digits == NumberOptions::kDefaultDigits ? form.digits : options.digits;
  DecimalDigits number(decimal);
  number.Scale(form.power);
  number.Round(digits, Rounding::kHalfAwayFromZero);

  const bool is_negative = number.IsNegative() && !number.IsZero();
  const bool in_parentheses = is_negative && options.parentheses == Tristate::kTrue;
  const LocaleFacts::Affixes& affixes = form.affixes[is_negative && !in_parentheses ? 1 : 0];
  scratch.clear();
  if (in_parentheses) scratch += '(';
  scratch += affixes.prefix;
  if (number.WholeDigits() > 0) {
    PutWhole(number, options.groups != Tristate::kFalse, scratch);
  } else if (options.leading_digit != Tristate::kFalse || digits == 0) {
    scratch += '0';
  }
  if (digits > 0) scratch += decimal_point_;
  for (int power = -1; power >= -digits; --power) scratch += number.DigitAt(power);
  scratch += affixes.suffix;
  if (in_parentheses) scratch += ')';
  return scratch;
}

void NumberForms::PutWhole(const DecimalDigits& number, bool with_groups, std::string& to) const {
  for (int power = number.WholeDigits() - 1; power >= 0; --power) {
    to += number.DigitAt(power);
    if (with_groups && EndsGroup(power)) to += grouping_;
  }
}

}  // namespace dralo::regional
