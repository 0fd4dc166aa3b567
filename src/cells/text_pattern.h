#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::cells {

/// A pattern for texts: "@" is a character or a blank, "&" a character or nothing; "<" makes small letters,
/// ">" capital ones. Characters fill the places from the right, with "!" from the left; those for which there
/// is no place stand before the first, with "!" behind the last. Without a place the text stands at the end.
/// Texts in quotation marks, characters behind "\" and all others stand for themselves. What stands behind a
/// ";" is for empty texts, which cells do not format.
class TextPattern {
 public:
  explicit TextPattern(std::string_view pattern);

  /// Replaces the content of `to`, in which `text` must not stand.
  void Write(std::string_view text, std::string& to) const;

 private:
  struct Token {
    char place = '\0';  ///< "@" or "&"; '\0' for a literal.
    std::string text = {};
  };
  enum class LetterCase : std::uint8_t { kKept, kSmall, kCapital };

  void Take(std::string_view& rest);
  void AddLiteral(std::string_view text);
  void Fill(std::string_view text, std::string& to) const;
  std::size_t CharactersAt(std::size_t place, std::size_t characters) const;

  std::vector<Token> tokens_;
  std::size_t places_ = 0;
  bool fills_from_left_ = false;
  LetterCase letter_case_ = LetterCase::kKept;
};

}  // namespace dralo::cells
