#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace dralo::html {

/// Reads the script in a template, as far as that is needed to say what a value in it is.
class ScriptScanner {
 public:
  enum class Place {
    kString,   ///< Between quotes of any kind.
    kValue,    ///< In code.
    kNothing,  ///< In a comment or a regular expression.
    kUnclear,  ///< After something that scripts may read in more than one way.
  };

  /// Takes the next character; character references must be decoded.
  void Take(char c);

  /// What a value after the characters taken is.
  Place PlaceOfValue() const;

  /// Takes a value that is written as its place demands.
  void TakeValue();

 private:
  enum class State {
    kCode,
    kSlash,
    kSingle,
    kDouble,
    kBackticks,
    kLineComment,
    kBlockComment,
    kPattern,
    kPatternClass,
    kUnclear,
  };

  bool IsInString() const {
    return state_ == State::kSingle || state_ == State::kDouble || state_ == State::kBackticks;
  }

  void TakeInCode(char c);
  void TakeBehindSlash(char c);
  void TakeInString(char c);
  void TakeInPattern(char c);
  void StartPatternOrDivision(char c);
  void TakeBrace(char c);

  State state_ = State::kCode;
  bool is_escaped_ = false;          ///< The last character was a backslash that takes the next one with it.
  char last_ = '\n';                 ///< The last character of a comment or of text in backticks.
  std::string code_;                 ///< The end of the code taken.
  std::vector<std::size_t> braces_;  ///< How many braces are open within each open "${".
};

}  // namespace dralo::html
