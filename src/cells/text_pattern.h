#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::cells {

/// A pattern for texts. "@" is the place of a character or a blank, "&" that of a character or nothing; "<"
/// makes lower case, ">" upper case. Characters fill the places from the right, with "!" from the left. Those
/// without a place go before the first place, with "!" behind the last; a pattern without places has the text
/// at its end. Texts in quotation marks, characters behind "\" and all others stand for themselves. What
/// follows a ";" is for empty texts, which cells do not format.
class TextPattern {
 public:
  explicit TextPattern(std::string_view pattern);

  /// Replaces the content of `to`, which must not contain `text`.
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
