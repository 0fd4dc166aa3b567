#include "cells/text_pattern.h"

#include <algorithm>

#include "text/characters.h"
#include "text/letter_case.h"

namespace dralo::cells {

TextPattern::TextPattern(std::string_view pattern) {
  while (!pattern.empty() && pattern[0] != ';') Take(pattern);
}

void TextPattern::Take(std::string_view& rest) {
  const char c = rest[0];
  if (c == '"') {
    const std::size_t end = std::min(rest.find('"', 1), rest.size());
    AddLiteral(rest.substr(1, end - 1));
    return rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  if (c == '\\' && rest.size() > 1) {
    rest.remove_prefix(1);
    AddLiteral(rest.substr(0, 1));
  } else if (c == '@' || c == '&') {
    tokens_.push_back({c});
    ++places_;
  } else if (c == '<' || c == '>') {
    letter_case_ = c == '<' ? LetterCase::kSmall : LetterCase::kCapital;
  } else if (c == '!') {
    fills_from_left_ = true;
  } else {
    AddLiteral(rest.substr(0, 1));
  }
  rest.remove_prefix(1);
}

void TextPattern::AddLiteral(std::string_view text) {
  if (tokens_.empty() || tokens_.back().place != '\0') tokens_.push_back({});
  tokens_.back().text += text;
}

void TextPattern::Write(std::string_view text, std::string& to) const {
  to.clear();
  switch (letter_case_) {
    case LetterCase::kKept:
      return Fill(text, to);
    case LetterCase::kSmall:
      return Fill(text::ToLower(text), to);
    case LetterCase::kCapital:
      return Fill(text::ToUpper(text), to);
  }
}

void TextPattern::Fill(std::string_view text, std::string& to) const {
  const std::size_t characters = text::CountCharacters(text);
  std::size_t place = 0;
  for (const Token& token : tokens_) {
    if (token.place == '\0') {
      to += token.text;
      continue;
    }
    const std::size_t count = CharactersAt(place++, characters);
    const std::size_t bytes = text::BytesOfCharacters(text, count);
    if (count == 0 && token.place == '@') to += ' ';
    to += text.substr(0, bytes);
    text.remove_prefix(bytes);
  }
  to += text;
}

/// How many of a text's characters go to the place, counted from 0.
std::size_t TextPattern::CharactersAt(std::size_t place, std::size_t characters) const {
  if (fills_from_left_) return place < characters ? 1 : 0;
  if (characters < places_) return place >= places_ - characters ? 1 : 0;
  return place == 0 ? characters - places_ + 1 : 1;
}

}  // namespace dralo::cells
