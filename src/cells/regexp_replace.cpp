#include "cells/regexp_replace.h"
#include "text/list.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace dralo::cells {
namespace {

struct Parts {
  std::string_view pattern;
  std::string_view flags;
  std::string_view replacement;
};

/// Nothing when a slash is missing.
std::optional<Parts> Split(std::string_view text, std::string_view delimiter) {
  const std::size_t opening = text.find('/');
  if (opening == text.npos) return std::nullopt;
  std::size_t closing = text.find('/', opening + 1);
  while (closing != text.npos && text[closing - 1] == '\\') closing = text.find('/', closing + 1);
  if (closing == text.npos) return std::nullopt;

  Parts parts;
  parts.pattern = text.substr(opening + 1, closing - opening - 1);
  const std::string_view rest = text.substr(closing + 1);
  if (delimiter.empty() || rest.find(delimiter) == rest.npos) delimiter = ",";
  const std::size_t end = rest.find(delimiter);
  parts.flags = rest.substr(0, end);
  if (end != rest.npos) parts.replacement = rest.substr(end + delimiter.size());
  return parts;
}

}  // namespace

CellFunction RegExpReplace(platform::Environment& environment, std::string_view text,
                           std::string_view delimiter) {
  const auto parts = Split(text, delimiter);
  if (!parts) return [](FormatInput&, std::string&) -> std::string_view { return "Invalid RegExp"; };
  const auto has_flag = [&](char flag) { return parts->flags.find(flag) != std::string_view::npos; };
  const std::shared_ptr<platform::RegExp> expression = environment.CreateRegExp();
  expression->Compile(parts->pattern, {has_flag('i'), has_flag('g'), has_flag('m')});
  return [expression, replacement = std::string(parts->replacement)](FormatInput& input, std::string& to) {
    return std::string_view(to = expression->Replace(input.Text(), replacement));
  };
}

}  // namespace dralo::cells
