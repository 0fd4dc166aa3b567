#include "support/html_elements.h"

#include <algorithm>

namespace dralo::tests {
namespace {

constexpr std::string_view kBlanks = " \t\r\n\f";

bool IsLetter(char c) { return ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z'); }

/// Takes the text up to one of `ends`, or all of it, from the start of `rest`.
std::string_view TakeUntil(std::string_view& rest, std::string_view ends) {
  const std::string_view taken = rest.substr(0, std::min(rest.find_first_of(ends), rest.size()));
  rest.remove_prefix(taken.size());
  return taken;
}

void Skip(std::string_view& rest, std::string_view characters) {
  rest.remove_prefix(std::min(rest.find_first_not_of(characters), rest.size()));
}

std::string Decoded(std::string_view value) {
  constexpr std::string_view kQuote = "&quot;";
  std::string text;
  for (std::size_t at = value.find(kQuote); at != value.npos; at = value.find(kQuote)) {
    text.append(value.substr(0, at)).append("\"");
    value.remove_prefix(at + kQuote.size());
  }
  return text.append(value);
}

std::string TakeValue(std::string_view& rest) {
  if (rest.empty() || (rest[0] != '"' && rest[0] != '\'')) return Decoded(TakeUntil(rest, " \t\r\n\f>"));
  const std::string_view value = rest.substr(1, rest.find(rest[0], 1) - 1);
  rest.remove_prefix(std::min(rest.size(), value.size() + 2));
  return Decoded(value);
}

void TakeAttributes(std::string_view& rest, Element& element) {
  for (;;) {
    Skip(rest, " \t\r\n\f/");
    if (rest.empty() || rest[0] == '>') break;
    // An equals sign that no name precedes begins one.
    const std::string_view start = rest;
    const std::size_t first = rest[0] == '=' ? 1 : 0;
    rest.remove_prefix(first);
    const std::string_view name = start.substr(0, first + TakeUntil(rest, " \t\r\n\f/>=").size());
    Skip(rest, kBlanks);
    std::string value;
    if (rest.starts_with('=')) {
      rest.remove_prefix(1);
      Skip(rest, kBlanks);
      value = TakeValue(rest);
    }
    element.attributes.emplace_back(name, std::move(value));
  }
  rest.remove_prefix(std::min<std::size_t>(rest.size(), 1));
}

/// The start of the next tag, or the end.
std::size_t FindTag(std::string_view html) {
  for (std::size_t at = html.find('<'); at != html.npos; at = html.find('<', at + 1)) {
    const std::size_t name = html.substr(at + 1).starts_with('/') ? at + 2 : at + 1;
    if (name < html.size() && (IsLetter(html[name]) || html.substr(at).starts_with("<!--"))) return at;
  }
  return html.size();
}

/// The start of the end tag of a textarea, or the end. Nothing else is a tag in there.
std::size_t FindTextareaEnd(std::string_view html) {
  constexpr std::string_view kEnd = "/textarea";
  const auto is_same_letter = [](char wanted, char c) { return wanted == c || wanted - ('a' - 'A') == c; };
  for (std::size_t at = html.find('<'); at != html.npos; at = html.find('<', at + 1)) {
    const std::string_view tag = html.substr(at + 1, kEnd.size());
    const std::string_view behind = html.substr(std::min(at + 1 + kEnd.size(), html.size()));
    if (std::ranges::equal(kEnd, tag, is_same_letter) && behind.find_first_of(" \t\r\n\f/>") == 0) return at;
  }
  return html.size();
}

}  // namespace

bool Element::Has(std::string_view attribute) const {
  return std::ranges::any_of(attributes, [&](const auto& one) { return one.first == attribute; });
}

std::string_view Element::operator[](std::string_view attribute) const {
  const auto found =
      std::ranges::find_if(attributes, [&](const auto& one) { return one.first == attribute; });
  return found == attributes.end() ? std::string_view() : std::string_view(found->second);
}

std::vector<Element> Elements(std::string_view html) {
  std::vector<Element> elements;
  html.remove_prefix(FindTag(html));
  while (!html.empty()) {
    Element& element = elements.emplace_back();
    if (html.starts_with("<!--")) {
      element.name = "!--";
      const std::size_t end = html.find("-->");
      html.remove_prefix(end == html.npos ? html.size() : end + 3);
    } else {
      html.remove_prefix(1);
      element.name = html.substr(0, html.starts_with('/') ? 1 : 0);
      html.remove_prefix(element.name.size());
      const std::string_view word = TakeUntil(html, " \t\r\n\f/>");
      element.name = {word.data() - element.name.size(), element.name.size() + word.size()};
      TakeAttributes(html, element);
    }
    element.text = html.substr(0, element.Is("textarea") ? FindTextareaEnd(html) : FindTag(html));
    html.remove_prefix(element.text.size());
  }
  return elements;
}

}  // namespace dralo::tests
