#pragma once

#include <cstddef>
#include <string_view>

namespace dralo::fuzz {

/// What a target does with one input, which may hold any bytes. It fails by ending the process, so that a
/// fuzzer keeps the input: with Require(), a sanitizer or an exception that it does not expect.
void Try(std::string_view input);

/// Ends the process with `statement` unless it holds.
void Require(bool holds, std::string_view statement);

/// The parts of an input between the signs kSeparator, one after the other; the parts behind the last are
/// empty.
class Parts {
 public:
  static constexpr char kSeparator = '\x1E';

  explicit Parts(std::string_view input) : rest_(input) {}

  std::string_view Next();

  /// The next byte as a choice from 0 to `choices` - 1; "0" is 0, and so is the end of the input.
  std::size_t Choose(std::size_t choices);

  bool IsAtEnd() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

}  // namespace dralo::fuzz
