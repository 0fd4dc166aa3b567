#pragma once

#include <cstddef>
#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "settings/public_text.h"

namespace dralo::settings {

/// Adds to ErrorMessage: every text that it can have is made here. Descriptions are those of the database or
/// of the step that failed.
class ErrorReport {
 public:
  /// `message` must outlive the report and its copies.
  explicit ErrorReport(std::string& message) : message_(&message) {}

  /// For a hardened view: `message` gets the public text, each once, and `detail` what happened, as one line
  /// of text, each once and at most kMostDetailBytes in all. It too must outlive the report and its copies.
  ErrorReport(std::string& message, std::string& detail) : message_(&message), detail_(&detail) {}

  static constexpr std::size_t kMostDetailBytes = std::size_t{64} * 1024;

  /// What went wrong in a renderer or reader of that name.
  void Add(std::string_view description, std::string_view renderer);

  /// The same for what ran a statement. Pages that debug see the statement.
  void AddStatement(std::string_view description, std::string_view renderer, std::string_view statement,
                    bool shows_statement);

  void AddMissingKeys();

  /// The one text for a key that is none, that no record has, and of a record that the page does not show.
  void AddNoSuchRecord();

  /// A save whose record would no longer be one of the form's.
  void AddLeftForm();
  void AddKeyLinkFailure(std::string_view description);
  void AddNewKeyFailure(std::string_view description, std::string_view statement, bool shows_statement);
  void AddLookupFailure(std::string_view description, std::string_view statement);
  void AddOpeningFailure(std::string_view description, std::string_view statement);
  void AddAddNewFailure(std::string_view description);
  void AddUpdateFailure(std::string_view description);
  void AddFormattingFailure(std::string_view description);

  /// A comma list of interface texts was too short: `bound` is the number of its last item, counted from 0.
  void AddShortTextList(std::string_view property, std::size_t bound, std::string_view wanted);

  /// What a hardened view alone has to say. `detail` is for the page author.
  void AddPublic(PublicText text, std::string_view detail);

  /// What another report has said.
  void AddAll(std::string_view errors, std::string_view detail);

 private:
  /// `parts` are the message as plain views show it, and the detail.
  void Put(PublicText text, std::initializer_list<std::string_view> parts);
  void PutDetail(PublicText text, std::initializer_list<std::string_view> parts);

  std::string* message_;
  std::string* detail_ = nullptr;  ///< None: the view is plain.
};

/// Returns body(), or `neutral` when it throws; the failure is reported under `renderer`. The outermost call
/// of every renderer: a part that fails leaves a message and its neutral result, never a broken page script.
/// Only std::exception is caught: a host ends a page by throwing something else, which passes through.
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
