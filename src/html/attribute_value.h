#pragma once

#include <optional>
#include <string>

#include "html/attribute_meaning.h"
#include "html/script_scanner.h"
#include "html/value_place.h"

namespace dralo::html {

/// Reads the value of an attribute in a template, as far as that is needed to say what a database value in it
/// is.
class AttributeValue {
 public:
  explicit AttributeValue(AttributeMeaning meaning) : meaning_(meaning) {}

  /// Takes the next character of the template, not decoded.
  void Take(char c);

  /// What a value after the characters taken is; nothing when that cannot be told.
  std::optional<PlaceKind> PlaceOfValue();

  /// Takes a value that is written as its place demands; in a place of kNothing no value is written.
  void TakeValue();

  /// Whether the complete attribute leaves the values in it what they were taken for.
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
  std::string reference_;  ///< A possible character reference from its "&" on; else empty.
  std::string address_;    ///< What was taken, with kValueInAddress in place of values.
  ScriptScanner script_;
};

}  // namespace dralo::html
