#include "fuzz/page_structure.h"

#include <algorithm>
#include <array>

#include "text/ascii.h"

namespace dralo::fuzz {
namespace {

constexpr std::string_view kBlanks = " \t\n\r\f";

bool IsBlank(char c) { return kBlanks.find(c) != kBlanks.npos; }

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), [](char c) { return text::ToLower(c); });
  return lower;
}

bool HasRawText(std::string_view element) {
  constexpr auto kElements = std::to_array<std::string_view>(
      {"script", "style", "textarea", "title", "xmp", "iframe", "noembed", "noframes", "plaintext"});
  return std::ranges::find(kElements, element) != kElements.end();
}

/// Reads as the HTML standard says, with names in small letters.
class Tokenizer {
 public:
  explicit Tokenizer(std::string_view html) : rest_(html) {}

  std::string Structure() {
    while (!rest_.empty()) {
      TakeTo('<');
      if (rest_.empty()) break;
      TakeMarkup();
    }
    return lines_ + "end of " + place_;
  }

 private:
  void Drop(std::size_t bytes) { rest_.remove_prefix(std::min(bytes, rest_.size())); }
  void TakeTo(char c) { Drop(std::min(rest_.find(c), rest_.size())); }

  void TakeMarkup() {
    if (rest_.starts_with("<!--")) return TakeComment();
    const std::size_t name = rest_.substr(1).starts_with('/') ? 2 : 1;
    if (name < rest_.size() && text::IsLetter(rest_[name])) return TakeTag(name == 2);
    const bool is_bogus = rest_.size() > 1 && (rest_[1] == '!' || rest_[1] == '?' || name == 2);
    if (!is_bogus) return Drop(1);
    if (rest_.find('>') == rest_.npos) place_ = "a comment";
    lines_ += "comment\n";
    TakeTo('>');
    Drop(1);
  }

  void TakeComment() {
    lines_ += "comment\n";
    Drop(4);
    if (rest_.starts_with(">")) return Drop(1);
    if (rest_.starts_with("->")) return Drop(2);
    const std::size_t plain = std::min(rest_.find("-->"), rest_.size());
    const std::size_t odd = std::min(rest_.find("--!>"), rest_.size());
    if (std::min(plain, odd) == rest_.size()) place_ = "a comment";
    Drop(std::min(plain + 3, odd + 4));
  }

  void TakeTag(bool is_end_tag) {
    Drop(is_end_tag ? 2 : 1);
    const std::size_t size = std::min(rest_.find_first_of(" \t\n\r\f/>"), rest_.size());
    const std::string name = Lower(rest_.substr(0, size));
    Drop(size);
    lines_.append(is_end_tag ? "/" : "").append(name);
    if (!TakeAttributes()) place_ = "a tag";
    lines_ += '\n';
    if (!is_end_tag && HasRawText(name)) TakeRawText(name);
  }

  /// False when the tag does not end.
  bool TakeAttributes() {
    for (;;) {
      Drop(std::min(rest_.find_first_not_of(" \t\n\r\f/"), rest_.size()));
      if (rest_.empty()) return false;
      if (rest_[0] == '>') break;
      const std::size_t end = std::min(rest_.find_first_of(" \t\n\r\f/>=", 1), rest_.size());
      lines_.append(" ").append(Lower(rest_.substr(0, end)));
      Drop(end);
      Drop(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
      if (rest_.starts_with('=') && !TakeValue()) return false;
    }
    Drop(1);
    return true;
  }

  bool TakeValue() {
    Drop(1);
    Drop(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
    lines_ += '=';
    if (rest_.empty()) return false;
    if (rest_[0] != '"' && rest_[0] != '\'') {
      Drop(std::min(rest_.find_first_of(" \t\n\r\f>"), rest_.size()));
      return true;
    }
    const std::size_t end = rest_.find(rest_[0], 1);
    Drop(end == rest_.npos ? end : end + 1);
    return end != rest_.npos;
  }

  void TakeRawText(std::string_view element) {
    for (; !rest_.empty(); Drop(1)) {
      if (!rest_.starts_with("</")) continue;
      const std::string_view tag = rest_.substr(2);
      if (!text::StartsWithAscii(tag, element) || tag.size() < element.size() + 1) continue;
      const char behind = tag[element.size()];
      if (IsBlank(behind) || behind == '/' || behind == '>') return;
    }
    place_ = "raw text";
  }

  std::string_view rest_;
  std::string lines_;
  std::string place_ = "text";
};

}  // namespace

std::string StructureOf(std::string_view html) { return Tokenizer(html).Structure(); }

}  // namespace dralo::fuzz
