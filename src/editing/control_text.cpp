#include "editing/control_text.h"

#include <cstddef>
#include <cstdint>
#include <variant>

#include "cells/standard_text.h"
#include "text/boolean_text.h"
#include "text/letter_case.h"

namespace dralo::editing {
namespace {

constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";

bool IsTail(char c, unsigned char lowest = 0x80, unsigned char highest = 0xBF) {
  const auto byte = static_cast<unsigned char>(c);
  return lowest <= byte && byte <= highest;
}

/// What the first byte of a character of several bytes says about the others.
struct Lead {
  std::size_t length = 0;  ///< Of the whole character; 0 when the byte begins none.
  unsigned char lowest_second = 0x80;
  unsigned char highest_second = 0xBF;
};

Lead ReadLead(char c) {
  const auto byte = static_cast<unsigned char>(c);
  if (byte < 0xC2 || byte > 0xF4) return {};
  if (byte < 0xE0) return {2};
  if (byte == 0xE0) return {3, 0xA0};
  if (byte == 0xED) return {3, 0x80, 0x9F};
  if (byte < 0xF0) return {3};
  if (byte == 0xF0) return {4, 0x90};
  if (byte == 0xF4) return {4, 0x80, 0x8F};
  return {4};
}

/// Walks through a text as a control of a browser holds it, piece by piece.
class Walk {
 public:
  Walk(std::string_view text, bool is_one_line) : rest_(text), is_one_line_(is_one_line) {}

  /// The next character; "\n" for a line break of any kind, empty at the end.
  std::string_view Next() {
    for (;;) {
      if (rest_.empty()) return {};
      const char c = rest_[0];
      if (c == '\r' || c == '\n') {
        TakeLineBreak();
        if (is_one_line_) continue;
        return "\n";
      }
      if (c == '\0') {
        rest_.remove_prefix(1);
        return kReplacementCharacter;
      }
      return IsTail(c, 0x01, 0x7F) ? Take(1) : TakeSequence();
    }
  }

 private:
  std::string_view Take(std::size_t bytes) {
    const std::string_view taken = rest_.substr(0, bytes);
    rest_.remove_prefix(bytes);
    return taken;
  }

  void TakeLineBreak() { Take(rest_.starts_with("\r\n") ? 2 : 1); }

  /// Takes a character of several bytes. Of one that is broken off, all that is there is replaced at once.
  std::string_view TakeSequence() {
    const Lead lead = ReadLead(rest_[0]);
    std::size_t length = 1;
    while (
        length < lead.length && length < rest_.size() &&
        (length == 1 ? IsTail(rest_[1], lead.lowest_second, lead.highest_second) : IsTail(rest_[length]))) {
      ++length;
    }
    const std::string_view taken = Take(length);
    return length == lead.length ? taken : kReplacementCharacter;
  }

  std::string_view rest_;
  bool is_one_line_;
};

}  // namespace

std::string_view ControlText(const state::Render& render, platform::Field& field, std::string& scratch) {
  if (field.Type() == platform::TypeCode::kBoolean) {
    const platform::VariantView value = field.Value();
    if (const auto* flag = std::get_if<bool>(&value)) return text::BooleanText(*flag);
  }
  return cells::ReadRawText(render.Regional(), field, scratch);
}

std::string_view ControlText(const state::Render& render, platform::TypeCode type,
                             const platform::VariantView& value, std::string& scratch) {
  return cells::RawText(render.Regional(), type, value, scratch);
}

bool IsTicked(const platform::VariantView& value) {
  struct Tick {
    bool operator()(bool flag) const { return flag; }
    bool operator()(std::int64_t number) const { return number != 0; }
    bool operator()(double number) const { return number != 0; }
    bool operator()(platform::DecimalView number) const {
      return number.text.find_first_of("123456789") != number.text.npos;
    }
    bool operator()(std::string_view text) const {
      return text::EqualIgnoringCase(text, text::BooleanText(true));
    }
    bool operator()(platform::Null) const { return false; }
    bool operator()(const platform::DateTime&) const { return false; }
    bool operator()(platform::BytesView) const { return false; }
  };
  return std::visit(Tick{}, value);
}

bool IsUntouched(std::string_view posted, std::string_view shown, bool is_one_line) {
  if (posted == shown) return true;
  Walk left(posted, is_one_line);
  Walk right(shown, is_one_line);
  for (;;) {
    const std::string_view character = left.Next();
    if (character != right.Next()) return false;
    if (character.empty()) return true;
  }
}

}  // namespace dralo::editing
