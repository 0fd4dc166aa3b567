#pragma once

#include <string>

namespace dralo::settings {

/// What ErrorMessage of a hardened view can say. A text tells the visitor what he can do, and nothing about
/// the database; its number leads to the details in ErrorDetail and in the log. A number is never used again
/// for another text.
enum class PublicText {
  kPart = 1,
  kRequest = 2,
  kMissingKeys = 3,
  kKeyLink = 4,
  kNewKey = 5,
  kLookup = 6,
  kOpening = 7,
  kAddNew = 8,
  kUpdate = 9,
  kFormatting = 10,
  kTextList = 11,
  kForeignPost = 12,
  kUnknownSender = 13,
  kRepeatedField = 14,
  kTooLarge = 15,
  kWrongHost = 16,
  kDelete = 17,
  kNoSuchRecord = 18,
  kLeftForm = 19,
  kConnectionLost = 20,
  kUnknownOutcome = 21,
  kFormToken = 22,
};

/// The text with its number in front, as HTML: "Message 7: The record could not be opened.".
std::string NumberedText(PublicText text);

}  // namespace dralo::settings
