#include "settings/public_text.h"

#include <string_view>

namespace dralo::settings {
namespace {

std::string_view TextOf(PublicText text) {
  switch (text) {
    case PublicText::kPart:
      return "A part of this page could not be made.";
    case PublicText::kRequest:
      return "The request could not be carried out.";
    case PublicText::kMissingKeys:
      return "Records cannot be addressed: the page names no keys.";
    case PublicText::kKeyLink:
      return "A record cannot be addressed.";
    case PublicText::kNewKey:
      return "There is no key for the new record.";
    case PublicText::kLookup:
      return "The choices for a field could not be read.";
    case PublicText::kOpening:
      return "The record could not be opened.";
    case PublicText::kAddNew:
      return "No record can be added.";
    case PublicText::kUpdate:
      return "The record was not saved.";
    case PublicText::kFormatting:
      return "A value could not be formatted.";
    case PublicText::kTextList:
      return "A list of texts is too short.";
    case PublicText::kForeignPost:
      return "Nothing was changed: the request came from another site.";
    case PublicText::kUnknownSender:
      return "Nothing was changed: the request does not say where it comes from.";
    case PublicText::kRepeatedField:
      return "Nothing was changed: a field came twice.";
    case PublicText::kTooLarge:
      return "Nothing was changed: the request is too large.";
    case PublicText::kWrongHost:
      return "This site does not answer under that name.";
    case PublicText::kDelete:
      return "The record was not deleted.";
    case PublicText::kNoSuchRecord:
      return "There is no such record.";
    case PublicText::kLeftForm:
      return "Nothing was saved: the record would not be one of this page any more.";
  }
  return {};
}

}  // namespace

std::string NumberedText(PublicText text) {
  return std::string("Message ")
      .append(std::to_string(static_cast<int>(text)))
      .append(": ")
      .append(TextOf(text));
}

}  // namespace dralo::settings
