#include "html/template_scanner.h"

#include <algorithm>
#include <initializer_list>

#include "html/attribute_meaning.h"
#include "text/ascii.h"

namespace dralo::html {
namespace {

bool IsHtmlBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }

bool IsAnyOf(std::string_view name, std::initializer_list<std::string_view> names) {
  return std::ranges::find(names, name) != names.end();
}

/// Elements whose content browsers read as text, up to their end tag.
bool HasRawText(std::string_view element) {
  return IsAnyOf(
      element, {"script", "style", "textarea", "title", "xmp", "iframe", "noembed", "noframes", "plaintext"});
}

}  // namespace

void TemplateScanner::Take(char c) {
  switch (state_) {
    case State::kText:
      if (c == '<') state_ = State::kTagOpen;
      return;
    case State::kTagOpen:
    case State::kEndTagOpen:
      return TakeInTagOpen(c);
    case State::kDeclaration:
      return TakeInDeclaration(c);
    case State::kComment:
      return TakeInComment(c);
    case State::kBogusComment:
      if (c == '>') state_ = State::kText;
      return;
    case State::kRawText:
      return TakeInRawText(c);
    case State::kTagName:
      return TakeInTagName(c);
    case State::kBeforeName:
    case State::kAfterQuoted:
    case State::kSelfClosing:
      return TakeBeforeName(c);
    case State::kName:
    case State::kAfterName:
      return TakeInName(c);
    case State::kBeforeValue:
      return TakeBeforeValue(c);
    case State::kDoubleQuoted:
    case State::kSingleQuoted:
    case State::kUnquoted:
      return TakeInValue(c);
    case State::kUnclear:
      return;
  }
}

void TemplateScanner::TakeInTagOpen(char c) {
  const bool is_end_tag = state_ == State::kEndTagOpen;
  if (text::IsLetter(c)) {
    StartTag(is_end_tag);
    TakeInTagName(c);
  } else if (is_end_tag) {
    state_ = c == '>' ? State::kText : State::kBogusComment;
  } else if (c == '/') {
    state_ = State::kEndTagOpen;
  } else if (c == '!') {
    state_ = State::kDeclaration;
    text_.clear();
  } else if (c == '?') {
    state_ = State::kBogusComment;
  } else if (c != '<') {
    state_ = State::kText;
  }
}

void TemplateScanner::TakeInDeclaration(char c) {
  text_ += c;
  if (text_ == "--") {
    state_ = State::kComment;
    text_.clear();
  } else if (text_ == "[") {
    state_ = State::kUnclear;  // In SVG a part of its text, elsewhere a comment.
  } else if (text_ != "-") {
    state_ = c == '>' ? State::kText : State::kBogusComment;
  }
}

void TemplateScanner::TakeInComment(char c) {
  const bool is_end = text_.empty() || text_ == "-" || text_.ends_with("--") || text_.ends_with("--!");
  if (c == '>' && is_end) {
    state_ = State::kText;
  } else {
    text_ += c;
  }
}

void TemplateScanner::TakeInRawText(char c) {
  if (element_ == "script") script_.Take(c);
  if (c == '<') {
    text_ = c;
  } else if (!text_.empty()) {
    text_ += c;
  }
  if (element_ == "script" && text_ == "<!--") state_ = State::kUnclear;  // Its end tag may not end it then.
  if (text_.size() < 3) return;
  const std::string_view name = std::string_view(text_).substr(2);
  const bool is_end = text_[1] == '/' && name.size() == element_.size() + 1 &&
                      text::StartsWithAscii(name, element_) && (IsHtmlBlank(c) || c == '/' || c == '>');
  if (!is_end) return;
  StartTag(true);
  TakeInTagName(c);
}

void TemplateScanner::StartTag(bool is_end_tag) {
  is_end_tag_ = is_end_tag;
  element_.clear();
  state_ = State::kTagName;
}

bool TemplateScanner::TakeTagEnd(char c) {
  if (c != '>') return false;
  EndTag();
  return true;
}

void TemplateScanner::TakeInTagName(char c) {
  if (TakeTagEnd(c)) return;
  if (IsHtmlBlank(c)) {
    state_ = State::kBeforeName;
  } else if (c == '/') {
    state_ = State::kSelfClosing;
  } else {
    element_ += text::ToLower(c);
  }
}

void TemplateScanner::TakeBeforeName(char c) {
  if (TakeTagEnd(c)) return;
  if (IsHtmlBlank(c)) {
    state_ = State::kBeforeName;
  } else if (c == '/') {
    state_ = State::kSelfClosing;
  } else {
    attribute_ = text::ToLower(c);
    state_ = State::kName;
  }
}

void TemplateScanner::TakeInName(char c) {
  if (TakeTagEnd(c)) return;
  if (IsHtmlBlank(c)) {
    state_ = State::kAfterName;
  } else if (c == '/') {
    state_ = State::kSelfClosing;
  } else if (c == '=') {
    state_ = State::kBeforeValue;
  } else if (state_ == State::kAfterName) {
    TakeBeforeName(c);
  } else {
    attribute_ += text::ToLower(c);
  }
}

void TemplateScanner::TakeBeforeValue(char c) {
  if (IsHtmlBlank(c) || TakeTagEnd(c)) return;
  if (c == '"') {
    StartValue(State::kDoubleQuoted);
  } else if (c == '\'') {
    StartValue(State::kSingleQuoted);
  } else {
    StartValue(State::kUnquoted);
    TakeInValue(c);
  }
}

void TemplateScanner::StartValue(State state) {
  value_.emplace(MeaningOf(element_, attribute_));
  state_ = state;
}

void TemplateScanner::EndValue(State next) {
  state_ = value_->IsClear() ? next : State::kUnclear;
  value_.reset();
}

void TemplateScanner::TakeInValue(char c) {
  if (state_ == State::kUnquoted && (IsHtmlBlank(c) || c == '>')) {
    EndValue(State::kBeforeName);
    if (c == '>' && state_ != State::kUnclear) EndTag();
  } else if (state_ != State::kUnquoted && c == (state_ == State::kDoubleQuoted ? '"' : '\'')) {
    EndValue(State::kAfterQuoted);
  } else {
    value_->Take(c);
  }
}

void TemplateScanner::EndTag() {
  state_ = State::kText;
  if (element_ == "svg" || element_ == "math") is_foreign_ = !is_end_tag_;
  if (!is_end_tag_ && HasRawText(element_)) StartRawText();
}

void TemplateScanner::StartRawText() {
  text_.clear();
  script_ = {};
  if (!is_foreign_) {
    state_ = State::kRawText;
  } else if (element_ != "title") {  // Titles only of SVG are read as other elements.
    state_ = State::kUnclear;
  }
}

std::optional<ValuePlace> TemplateScanner::TakeValue(std::string_view behind, bool is_last) {
  switch (state_) {
    case State::kText:
      return ValuePlace{.kind = PlaceKind::kText};
    case State::kRawText:
      return ValueInRawText();
    case State::kBeforeValue:
    case State::kDoubleQuoted:
    case State::kSingleQuoted:
    case State::kUnquoted:
      return ValueOfAttribute(behind, is_last);
    case State::kUnclear:
      return std::nullopt;
    default:
      return ValuePlace{.kind = PlaceKind::kNothing};  // In comments and names.
  }
}

std::optional<ValuePlace> TemplateScanner::ValueInRawText() {
  const bool is_in_end_tag = !text_.empty() && text::StartsWithAscii("</" + element_, text_);
  if (is_in_end_tag) return std::nullopt;
  if (element_ == "textarea" || element_ == "title") return ValuePlace{.kind = PlaceKind::kText};
  if (element_ == "style") return ValuePlace{.kind = PlaceKind::kStyle};
  if (element_ != "script") return ValuePlace{.kind = PlaceKind::kNothing};
  const ScriptScanner::Place place = script_.PlaceOfValue();
  if (place == ScriptScanner::Place::kUnclear) return std::nullopt;
  script_.TakeValue();
  if (place == ScriptScanner::Place::kNothing) return ValuePlace{.kind = PlaceKind::kNothing};
  return ValuePlace{.kind = place == ScriptScanner::Place::kString ? PlaceKind::kScriptString
                                                                   : PlaceKind::kScriptValue};
}

std::optional<ValuePlace> TemplateScanner::ValueOfAttribute(std::string_view behind, bool is_last) {
  ValuePlace place;
  if (state_ == State::kBeforeValue) {
    StartValue(State::kUnquoted);
    const bool ends = behind.empty() ? is_last : IsHtmlBlank(behind[0]) || behind[0] == '>';
    const bool begins_another = behind.empty() ? !is_last : behind[0] == '"' || behind[0] == '\'';
    // An empty value would put the quote, or the second value, at the start.
    if (begins_another) return std::nullopt;
    place.is_whole_value = ends;
  }
  place.is_unquoted = state_ == State::kUnquoted;
  const auto kind = value_->PlaceOfValue();
  if (!kind) return std::nullopt;
  place.kind = *kind;
  value_->TakeValue();
  return place;
}

bool TemplateScanner::EndsAsItBegan() {
  if (start_ == TemplateStart::kText) return state_ == State::kText;
  switch (state_) {
    case State::kUnquoted:
      return value_->IsClear();
    case State::kBeforeName:
    case State::kName:
    case State::kAfterName:
    case State::kBeforeValue:
    case State::kAfterQuoted:
    case State::kSelfClosing:
      return true;
    default:
      return false;
  }
}

}  // namespace dralo::html
