#pragma once

#include <cstddef>
#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "settings/public_text.h"

namespace dralo::settings {

/// Adds to ErrorMessage; every text that it can have is made here. Descriptions come from the database or
/// from the step that failed.
class ErrorReport {
 public:
  /// `message` must outlive the report and its copies.
  explicit ErrorReport(std::string& message) : message_(&message) {}

  /// For a hardened view: `message` gets the public text, each one once, and `detail` gets what happened, as
  /// lines of text, each one once and at most kMostDetailBytes in all. `detail` too must outlive the report
  /// and its copies.
  ErrorReport(std::string& message, std::string& detail) : message_(&message), detail_(&detail) {}

  static constexpr std::size_t kMostDetailBytes = std::size_t{64} * 1024;

  /// Reports a failure in the renderer or reader of that name.
  void Add(std::string_view description, std::string_view renderer);

  /// The same for a failure of a statement, which is shown only with `shows_statement`.
  void AddStatement(std::string_view description, std::string_view renderer, std::string_view statement,
                    bool shows_statement);

  void AddMissingKeys();

  /// One text for three cases, so that they cannot be told apart: a key that is none, one that no record has,
  /// and one whose record the page does not show.
  void AddNoSuchRecord();

  /// Reports a save after which the form's statement would no longer yield the record.
  void AddLeftForm();
  void AddKeyLinkFailure(std::string_view description);
  void AddNewKeyFailure(std::string_view description, std::string_view statement, bool shows_statement);
  void AddLookupFailure(std::string_view description, std::string_view statement);
  void AddOpeningFailure(std::string_view description, std::string_view statement);
  void AddAddNewFailure(std::string_view description);
  void AddUpdateFailure(std::string_view description);
  void AddFormattingFailure(std::string_view description);

  /// Reports that a comma list of interface texts is too short: `bound` is the index, from 0, of its last
  /// item.
  void AddShortTextList(std::string_view property, std::size_t bound, std::string_view wanted);

  /// Reports what only a hardened view reports. `detail` is for the page author.
  void AddPublic(PublicText text, std::string_view detail);

  /// Adds what another report has collected.
  void AddAll(std::string_view errors, std::string_view detail);

 private:
  /// `parts`, joined, are the message of a plain view, and the detail of a hardened one.
  void Put(PublicText text, std::initializer_list<std::string_view> parts);
  void PutDetail(PublicText text, std::initializer_list<std::string_view> parts);

  std::string* message_;
  std::string* detail_ = nullptr;  ///< nullptr when the view is plain.
};

/// Returns body(), or `neutral` when it throws; the failure is reported under `renderer`. Every renderer is
/// wrapped in it, so that a part that fails leaves a message and its neutral result, never a broken page
/// script. Only std::exception is caught: a host ends a page by throwing something else, which passes
/// through.
template <class Result, class Body>
Result Guarded(ErrorReport errors, std::string_view renderer, Result neutral, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (const std::exception& error) {
    errors.Add(error.what(), renderer);
  }
  return neutral;
}

/// The same for renderers without a result.
template <class Body>
void Guarded(ErrorReport errors, std::string_view renderer, Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (const std::exception& error) {
    errors.Add(error.what(), renderer);
  }
}

}  // namespace dralo::settings
