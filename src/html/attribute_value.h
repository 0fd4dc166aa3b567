#pragma once

#include <optional>
#include <string>

#include "html/attribute_meaning.h"
#include "html/script_scanner.h"
#include "html/value_place.h"

namespace dralo::html {

/// Reads an attribute's value in a template as far as it must be understood to say what a value in it is.
class AttributeValue {
 public:
  explicit AttributeValue(AttributeMeaning meaning) : meaning_(meaning) {}

  /// Takes the next character as it stands in the template.
  void Take(char c);

  /// What a value behind the characters taken is; nothing when that cannot be told.
  std::optional<PlaceKind> PlaceOfValue();

  /// Takes a value that is written as its place demands, or with kNothing not at all.
  void TakeValue();

  /// Whether the whole value leaves the values in it what they were taken for.
  bool IsClear();

 private:
  void TakeDecoded(std::string_view text);
  void EndReference(std::optional<char> next);
  std::optional<PlaceKind> PlaceInAddress() const;
  std::optional<PlaceKind> PlaceInScript() const;
  bool IsAddress() const {
    return meaning_ == AttributeMeaning::kAddress || meaning_ == AttributeMeaning::kRelativeAddress;
  }

  AttributeMeaning meaning_;
  bool is_clear_ = true;
  std::string reference_;  ///< What may be a character reference, from its "&" on; else empty.
  std::string address_;    ///< What was taken, with kValueInAddress for values.
  ScriptScanner script_;
};

}  // namespace dralo::html
