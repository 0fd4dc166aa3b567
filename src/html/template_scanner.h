#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "html/attribute_value.h"
#include "html/script_scanner.h"
#include "html/value_place.h"

namespace dralo::html {

/// Where a template begins, and where it must end.
enum class TemplateStart {
  kText,       ///< In the text of a page.
  kAttributes  ///< In a start tag, after its name.
};

/// Reads a template as a browser would, to say what its values are.
class TemplateScanner {
 public:
  explicit TemplateScanner(TemplateStart start)
      : start_(start), state_(start == TemplateStart::kText ? State::kText : State::kBeforeName) {}

  void TakeLiteral(std::string_view literal) {
    for (const char c : literal) Take(c);
  }

  /// Takes the value that comes next; `behind` is the literal after it, and `is_last` says that nothing
  /// follows that literal. Nothing when it cannot be told what the value is.
  std::optional<ValuePlace> TakeValue(std::string_view behind, bool is_last);

  /// Whether everything taken has only one meaning.
  bool IsClear() const { return state_ != State::kUnclear; }

  /// Whether the template ends where it began.
  bool EndsAsItBegan();

 private:
  enum class State {
    kText,
    kTagOpen,
    kEndTagOpen,
    kDeclaration,
    kComment,
    kBogusComment,
    kRawText,
    kTagName,
    kBeforeName,
    kName,
    kAfterName,
    kBeforeValue,
    kDoubleQuoted,
    kSingleQuoted,
    kUnquoted,
    kAfterQuoted,
    kSelfClosing,
    kUnclear,
  };

  void Take(char c);
  void TakeInTagOpen(char c);
  void TakeInDeclaration(char c);
  void TakeInComment(char c);
  void TakeInRawText(char c);
  void TakeInTagName(char c);
  void TakeBeforeName(char c);
  void TakeInName(char c);
  void TakeBeforeValue(char c);
  void TakeInValue(char c);
  bool TakeTagEnd(char c);

  void StartTag(bool is_end_tag);
  void StartValue(State state);
  void EndValue(State next);
  void EndTag();
  void StartRawText();

  std::optional<ValuePlace> ValueOfAttribute(std::string_view behind, bool is_last);
  std::optional<ValuePlace> ValueInRawText();

  TemplateStart start_;
  State state_;
  bool is_end_tag_ = false;
  bool is_foreign_ = false;  ///< In SVG or MathML, where scripts and styles are read by other rules.
  std::string element_;      ///< Of the tag, or of the raw text after it; in lower case.
  std::string attribute_;    ///< In lower case.
  std::string text_;         ///< Of a comment or a declaration; of raw text from its last "<" on.
  std::optional<AttributeValue> value_;
  ScriptScanner script_;
};

}  // namespace dralo::html
