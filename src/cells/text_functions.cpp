#include "cells/text_functions.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "text/capitalisation.h"
#include "text/characters.h"
#include "text/letter_case.h"

namespace dralo::cells {
namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

std::size_t Characters(const FormatArguments& arguments, std::size_t number) {
  return static_cast<std::size_t>(arguments.Number(number, 0, kMost));
}

/// How many characters precede the position, which is counted from 1.
std::size_t CharactersBefore(const FormatArguments& arguments, std::size_t number) {
  return static_cast<std::size_t>(arguments.Number(number, 1, kMost)) - 1;
}

}  // namespace

CellFunction Replace(const FormatArguments& arguments) {
  if (arguments.Count() < 2 || arguments.Count() > 3) return WrongCount("Replace");
  const std::size_t before = arguments.Count() == 3 ? CharactersBefore(arguments, 3) : 0;
  return [before, what = arguments.Text(1), with = arguments.Text(2)](FormatInput& input, std::string& to) {
    std::string_view text = input.Text();
    if (what.empty()) return text;
    const std::size_t kept = text::BytesOfCharacters(text, before);
    to = text.substr(0, kept);
    text.remove_prefix(kept);
    for (std::size_t at = text.find(what); at != text.npos; at = text.find(what)) {
      to.append(text.substr(0, at)).append(with);
      text.remove_prefix(at + what.size());
    }
    return std::string_view(to.append(text));
  };
}

CellFunction Left(const FormatArguments& arguments) {
  if (arguments.Count() != 1) return WrongCount("Left");
  return [count = Characters(arguments, 1)](FormatInput& input, std::string&) {
    const std::string_view text = input.Text();
    return text.substr(0, text::BytesOfCharacters(text, count));
  };
}

CellFunction Right(const FormatArguments& arguments) {
  if (arguments.Count() != 1) return WrongCount("Right");
  return [count = Characters(arguments, 1)](FormatInput& input, std::string&) {
    const std::string_view text = input.Text();
    const std::size_t characters = text::CountCharacters(text);
    return text.substr(text::BytesOfCharacters(text, characters - std::min(count, characters)));
  };
}

CellFunction Mid(const FormatArguments& arguments) {
  if (arguments.Count() < 1 || arguments.Count() > 2) return WrongCount("Mid");
  const std::size_t before = CharactersBefore(arguments, 1);
  const std::size_t count = arguments.Count() == 2 ? Characters(arguments, 2) : std::string::npos;
  return [before, count](FormatInput& input, std::string&) {
    std::string_view text = input.Text();
    text.remove_prefix(text::BytesOfCharacters(text, before));
    return text.substr(0, text::BytesOfCharacters(text, count));
  };
}

/// Writes every cell into the same memory.
template <void (*Append)(std::string&, std::string_view)>
CellFunction InCase() {
  return [](FormatInput& input, std::string& to) {
    to.clear();
    Append(to, input.Text());
    return std::string_view(to);
  };
}

CellFunction UpperCase(const FormatArguments& /*arguments*/) { return InCase<text::AppendUpper>(); }

CellFunction LowerCase(const FormatArguments& /*arguments*/) { return InCase<text::AppendLower>(); }

CellFunction InitCaps(const FormatArguments& /*arguments*/) {
  return [](FormatInput& input, std::string& to) {
    return std::string_view(to = text::CapitaliseFirst(text::ToUpper(input.Text())));
  };
}

CellFunction InitCapsAll(const FormatArguments& /*arguments*/) {
  return [](FormatInput& input, std::string& to) {
    return std::string_view(to = text::CapitaliseWords(input.Text()));
  };
}

CellFunction Length(const FormatArguments& /*arguments*/) {
  return [](FormatInput& input, std::string& to) {
    const auto characters = static_cast<std::int64_t>(text::CountCharacters(input.Text()));
    return input.Regional().Text(characters, to);
  };
}

}  // namespace dralo::cells
