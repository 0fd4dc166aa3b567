#include "html/script_scanner.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "text/ascii.h"

namespace dralo::html {
namespace {

constexpr std::size_t kKeptCode = 64;

bool IsBlankOfScript(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

bool IsWordCharacter(char c) {
  return text::IsLetterOrDigit(c) || c == '_' || c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

std::string_view LastWord(std::string_view code) {
  std::size_t start = code.size();
  while (start > 0 && IsWordCharacter(code[start - 1])) --start;
  return code.substr(start);
}

/// Words that are followed by an operand.
bool WantsOperand(std::string_view word) {
  constexpr auto kWords = std::to_array<std::string_view>(
      {"return", "typeof", "case", "in", "of", "delete", "void", "throw", "new", "else", "do", "instanceof"});
  return std::ranges::find(kWords, word) != kWords.end();
}

enum class SlashMeaning { kPattern, kDivision, kUnclear };

/// What a slash begins after code that ends with a word. Two words are names or not, depending on where they
/// stand.
SlashMeaning MeaningBehindWord(std::string_view code) {
  const std::string_view word = LastWord(code);
  const bool is_member = code.size() > word.size() && code[code.size() - word.size() - 1] == '.';
  if (is_member) return SlashMeaning::kDivision;
  if (word == "yield" || word == "await") return SlashMeaning::kUnclear;
  return WantsOperand(word) ? SlashMeaning::kPattern : SlashMeaning::kDivision;
}

/// What a slash begins after that code.
SlashMeaning MeaningOfSlash(std::string_view code) {
  while (!code.empty() && IsBlankOfScript(code.back())) code.remove_suffix(1);
  if (code.empty()) return SlashMeaning::kPattern;
  const char last = code.back();
  if (std::string_view("=(,:[!&|?;{").find(last) != std::string_view::npos) return SlashMeaning::kPattern;
  if (IsWordCharacter(last)) return MeaningBehindWord(code);
  return last == ']' || last == '"' ? SlashMeaning::kDivision : SlashMeaning::kUnclear;
}

}  // namespace

void ScriptScanner::Take(char c) {
  switch (state_) {
    case State::kCode:
      return TakeInCode(c);
    case State::kSlash:
      return TakeBehindSlash(c);
    case State::kSingle:
    case State::kDouble:
    case State::kBackticks:
      return TakeInString(c);
    case State::kLineComment:
      if (c == '\n' || c == '\r') state_ = State::kCode;
      return;
    case State::kBlockComment:
      if (last_ == '*' && c == '/') state_ = State::kCode;
      last_ = c;
      return;
    case State::kPattern:
    case State::kPatternClass:
      return TakeInPattern(c);
    case State::kUnclear:
      return;
  }
}

void ScriptScanner::TakeInCode(char c) {
  if (c == '/') {
    state_ = State::kSlash;
    return;
  }
  code_ += c;
  if (code_.size() > 2 * kKeptCode) code_.erase(0, kKeptCode);
  // In some places scripts read these two as comments; a backslash spells the letters of a name.
  if (code_.ends_with("<!--") || code_.ends_with("-->") || c == '\\') {
    state_ = State::kUnclear;
  } else if (c == '\'') {
    state_ = State::kSingle;
  } else if (c == '"') {
    state_ = State::kDouble;
  } else if (c == '`') {
    state_ = State::kBackticks;
    last_ = c;
  } else if (c == '{' || c == '}') {
    TakeBrace(c);
  }
}

void ScriptScanner::TakeBrace(char c) {
  if (braces_.empty()) return;
  if (c == '{') {
    ++braces_.back();
  } else if (braces_.back() > 0) {
    --braces_.back();
  } else {
    braces_.pop_back();
    state_ = State::kBackticks;
    last_ = c;
  }
}

void ScriptScanner::TakeBehindSlash(char c) {
  if (c == '/') {
    state_ = State::kLineComment;
  } else if (c == '*') {
    state_ = State::kBlockComment;
    last_ = ' ';
  } else {
    StartPatternOrDivision(c);
  }
}

void ScriptScanner::StartPatternOrDivision(char c) {
  switch (MeaningOfSlash(code_)) {
    case SlashMeaning::kPattern:
      state_ = State::kPattern;
      return TakeInPattern(c);
    case SlashMeaning::kDivision:
      state_ = State::kCode;
      code_ += '/';
      return TakeInCode(c);
    case SlashMeaning::kUnclear:
      state_ = State::kUnclear;
  }
}

void ScriptScanner::TakeInString(char c) {
  const bool was_escaped = std::exchange(is_escaped_, c == '\\' && !is_escaped_);
  const bool follows_dollar = std::exchange(last_, c) == '$' && !was_escaped;
  if (was_escaped) {
    last_ = ' ';
    return;
  }
  if (state_ == State::kBackticks) {
    if (c == '{' && follows_dollar) {
      braces_.push_back(0);
      state_ = State::kCode;
      code_ = "{";
    } else if (c == '`') {
      state_ = State::kCode;
      code_ += '"';
    }
    return;
  }
  if (c == '\n' || c == '\r') {
    state_ = State::kUnclear;
  } else if (c == (state_ == State::kSingle ? '\'' : '"')) {
    state_ = State::kCode;
    code_ += '"';
  }
}

void ScriptScanner::TakeInPattern(char c) {
  if (c == '\n' || c == '\r') {
    state_ = State::kUnclear;
  } else if (std::exchange(is_escaped_, c == '\\' && !is_escaped_)) {
    return;
  } else if (c == '[') {
    state_ = State::kPatternClass;
  } else if (c == ']') {
    state_ = State::kPattern;
  } else if (c == '/' && state_ == State::kPattern) {
    state_ = State::kCode;
    code_ += '"';
  }
}

ScriptScanner::Place ScriptScanner::PlaceOfValue() const {
  switch (state_) {
    case State::kCode:
      return Place::kValue;
    case State::kSingle:
    case State::kDouble:
    case State::kBackticks:
      // If the value is empty, the backslash or the dollar would take what follows it.
      return is_escaped_ || (state_ == State::kBackticks && last_ == '$') ? Place::kUnclear : Place::kString;
    case State::kLineComment:
    case State::kBlockComment:
      return Place::kNothing;
    case State::kPattern:
    case State::kPatternClass:
      return is_escaped_ ? Place::kUnclear : Place::kNothing;
    case State::kSlash:
    case State::kUnclear:
      return Place::kUnclear;
  }
  return Place::kUnclear;
}

void ScriptScanner::TakeValue() {
  if (state_ == State::kCode) code_ += '0';
  if (IsInString()) last_ = ' ';
}

}  // namespace dralo::html
