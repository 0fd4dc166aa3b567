#include "regional/number_pattern.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "regional/pattern_literal.h"

namespace dralo::regional {
namespace {

bool IsPlaceholder(char c) { return c == '0' || c == '#'; }

/// Takes the text up to the first ";" outside literals, and the ";", from `rest`.
std::string_view TakeSection(std::string_view& rest) {
  const std::string_view whole = rest;
  std::string literal;
  while (!rest.empty() && rest[0] != ';') {
    if (!TakeLiteral(rest, literal)) rest.remove_prefix(1);
  }
  const std::string_view section = whole.substr(0, whole.size() - rest.size());
  if (!rest.empty()) rest.remove_prefix(1);
  return section;
}

}  // namespace

NumberSection::NumberSection(std::string_view pattern) {
  while (!pattern.empty()) {
    std::string literal;
    if (TakeLiteral(pattern, literal)) {
      AddLiteral(literal);
    } else if (pattern[0] == ',') {
      TakeCommas(pattern);
    } else if (!TakeExponent(pattern)) {
      const char c = pattern[0];
      pattern.remove_prefix(1);
      if (IsPlaceholder(c)) {
        AddDigit(c);
      } else if (c == '.' && !has_point_) {
        has_point_ = true;
        tokens_.push_back({Kind::kPoint});
      } else {
        AddLiteral({&c, 1});
        if (c == '%') power_ += 2;
      }
    }
  }
  Finish();
}

void NumberSection::AddLiteral(std::string_view text) {
  if (tokens_.empty() || tokens_.back().kind != Kind::kLiteral) tokens_.push_back({});
  tokens_.back().text += text;
}

/// The powers of digits before the decimal point are first counted from the left; Finish() reverses them.
void NumberSection::AddDigit(char placeholder) {
  if (has_exponent_) return AddLiteral({&placeholder, 1});
  const int power = has_point_ ? -++decimals_ : whole_++;
  tokens_.push_back({.kind = Kind::kDigit, .power = power, .is_required = placeholder == '0'});
}

bool NumberSection::TakeExponent(std::string_view& rest) {
  const bool is_exponent = rest.size() >= 3 && (rest[0] == 'E' || rest[0] == 'e') &&
                           (rest[1] == '+' || rest[1] == '-') && IsPlaceholder(rest[2]);
  if (!is_exponent || has_exponent_ || whole_ + decimals_ == 0) return false;
  has_exponent_ = true;
  Token token{.kind = Kind::kExponent, .text = std::string(rest.substr(0, 2))};
  rest.remove_prefix(2);
  for (; !rest.empty() && IsPlaceholder(rest[0]); rest.remove_prefix(1))
    token.width += rest[0] == '0' ? 1 : 0;
  tokens_.push_back(std::move(token));
  return true;
}

/// Commas between digits group; after the last digit, or the last before the decimal point, they divide.
void NumberSection::TakeCommas(std::string_view& rest) {
  const std::size_t count = std::min(rest.find_first_not_of(','), rest.size());
  rest.remove_prefix(count);
  if (whole_ + decimals_ == 0) return;
  const std::size_t next = rest.find_first_of("0#.");
  if (next != rest.npos && rest[next] != '.') {
    has_groups_ = has_groups_ || !has_point_;
  } else {
    power_ -= 3 * static_cast<int>(std::min<std::size_t>(count, 300));
  }
}

void NumberSection::Finish() {
  bool is_required = false;
  for (Token& token : tokens_) {
    if (token.kind != Kind::kDigit || token.power < 0) continue;
    token.power = whole_ - 1 - token.power;
    token.is_required = is_required = is_required || token.is_required;
  }
  // After the decimal point it is the other way round: digits before a required one are required.
  is_required = false;
  for (auto token = tokens_.rbegin(); token != tokens_.rend(); ++token) {
    if (token->kind != Kind::kDigit || token->power >= 0) continue;
    token->is_required = is_required = is_required || token->is_required;
  }
}

DecimalDigits NumberSection::Prepared(DecimalDigits number) const {
  number.Scale(power_);
  if (!has_exponent_) {
    number.Round(decimals_, Rounding::kHalfAwayFromZero);
  } else if (!number.IsZero()) {
    number.Round(whole_ + decimals_ - number.Point(), Rounding::kHalfAwayFromZero);
  }
  return number;
}

/// Moves the decimal point so that the number has as many digits before it as the pattern, and returns the
/// exponent that compensates for it.
int NumberSection::Normalize(DecimalDigits& number) const {
  if (!has_exponent_ || number.IsZero()) return 0;
  const int exponent = number.Point() - whole_;
  number.Scale(-exponent);
  return exponent;
}

void NumberSection::Write(DecimalDigits number, const NumberForms& forms, std::string& to) const {
  const int exponent = Normalize(number);
  bool is_first = true;
  for (const Token& token : tokens_) {
    switch (token.kind) {
      case Kind::kLiteral:
        to += token.text;
        break;
      case Kind::kDigit:
        PutDigits(token, number, std::exchange(is_first, false), forms, to);
        break;
      case Kind::kPoint:
        if (whole_ == 0) {
          for (int power = number.WholeDigits() - 1; power >= 0; --power) to += number.DigitAt(power);
          is_first = false;
        }
        to += forms.DecimalPoint();
        break;
      case Kind::kExponent:
        PutExponent(token, exponent, to);
        break;
    }
  }
}

void NumberSection::PutDigits(const Token& token, const DecimalDigits& number, bool is_first,
                              const NumberForms& forms, std::string& to) const {
  if (token.power < 0) {
    if (token.is_required || -token.power <= number.Decimals()) to += number.DigitAt(token.power);
    return;
  }
  // The first placeholder also takes the digits for which the pattern has none.
  if (is_first) {
    for (int power = number.WholeDigits() - 1; power > token.power; --power)
      PutDigit(number, power, forms, to);
  }
  if (token.is_required || token.power < number.WholeDigits()) PutDigit(number, token.power, forms, to);
}

void NumberSection::PutDigit(const DecimalDigits& number, int power, const NumberForms& forms,
                             std::string& to) const {
  to += number.DigitAt(power);
  if (has_groups_ && forms.EndsGroup(power)) to += forms.Grouping();
}

void NumberSection::PutExponent(const Token& token, int exponent, std::string& to) {
  to += token.text[0];
  if (exponent < 0) {
    to += '-';
  } else if (token.text[1] == '+') {
    to += '+';
  }
  const std::string digits = std::to_string(std::abs(exponent));
  const auto width = static_cast<std::size_t>(token.width);
  if (digits.size() < width) to.append(width - digits.size(), '0');
  to += digits;
}

NumberPattern::NumberPattern(std::string_view pattern) {
  sections_.emplace_back(TakeSection(pattern));
  for (std::size_t* place : {&negative_, &zero_}) {
    const std::string_view section = TakeSection(pattern);
    if (section.empty()) continue;
    *place = sections_.size();
    sections_.emplace_back(section);
  }
}

void NumberPattern::Write(std::string_view decimal, const NumberForms& forms, std::string& to) const {
  const DecimalDigits number(decimal);
  if (number.IsZero()) return ForZero().Write(ForZero().Prepared(number), forms, to);
  const NumberSection& section = sections_[number.IsNegative() ? negative_ : 0];
  const DecimalDigits prepared = section.Prepared(number);
  if (prepared.IsZero()) return ForZero().Write(prepared, forms, to);
  if (number.IsNegative() && negative_ == 0) to += '-';
  section.Write(prepared, forms, to);
}

}  // namespace dralo::regional
