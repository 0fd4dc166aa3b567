#pragma once

#include <string>
#include <string_view>

namespace dralo::platform {

/// A regular expression that is compiled once and replaces often.
class RegExp {
 public:
  virtual ~RegExp() = default;

  struct Options {
    bool ignore_case = false;
    bool global = false;  ///< Replace every match instead of the first.
    bool multi_line = false;
  };

  /// Throws Error when `pattern` is no regular expression.
  virtual void Compile(std::string_view pattern, const Options& options) = 0;

  /// `text` with the match, or every match, replaced; "$1" to "$99" and "$&" stand for what was matched.
  /// Throws Error when the match would take too long.
  virtual std::string Replace(std::string_view text, std::string_view replacement) const = 0;
};

}  // namespace dralo::platform
