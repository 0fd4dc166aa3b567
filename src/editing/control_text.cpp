#include "editing/control_text.h"

#include <cstddef>
#include <cstdint>
#include <variant>

#include "cells/standard_text.h"
#include "text/boolean_text.h"
#include "text/iso_date.h"
#include "text/letter_case.h"
#include "text/utf8.h"

namespace dralo::editing {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// Walks character by character through a text as a browser's control holds it.
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
        return kReplacement;
      }
      const text::Decoded first = text::DecodeFirst(rest_);
      const std::string_view taken = Take(first.bytes);
      return first.character ? taken : kReplacement;
    }
  }

 private:
  std::string_view Take(std::size_t bytes) {
    const std::string_view taken = rest_.substr(0, bytes);
    rest_.remove_prefix(bytes);
    return taken;
  }

  void TakeLineBreak() { Take(rest_.starts_with("\r\n") ? 2 : 1); }

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

std::string_view ControlText(const state::Render& render, platform::Field& field, bool is_iso_day,
                             std::string& scratch) {
  if (is_iso_day) {
    const platform::VariantView value = field.Value();
    if (const auto* day = std::get_if<platform::DateTime>(&value)) {
      scratch.clear();
      text::PutDate(*day, scratch);
      return scratch;
    }
  }
  return ControlText(render, field, scratch);
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

std::string AsHeldByControl(std::string_view text, bool is_one_line) {
  std::string held;
  held.reserve(text.size());
  Walk walk(text, is_one_line);
  for (std::string_view next = walk.Next(); !next.empty(); next = walk.Next()) held.append(next);
  return held;
}

}  // namespace dralo::editing
