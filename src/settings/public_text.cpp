#include "settings/public_text.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace dralo::settings {
namespace {

struct Row {
  PublicText text;
  std::string_view words;
};

constexpr Row kRows[] = {
    {PublicText::kPart, "A part of this page could not be made."},
    {PublicText::kRequest, "The request could not be carried out."},
    {PublicText::kMissingKeys, "Records cannot be addressed: the page names no keys."},
    {PublicText::kKeyLink, "A record cannot be addressed."},
    {PublicText::kNewKey, "There is no key for the new record."},
    {PublicText::kLookup, "The choices for a field could not be read."},
    {PublicText::kOpening, "The record could not be opened."},
    {PublicText::kAddNew, "No record can be added."},
    {PublicText::kUpdate, "The record was not saved."},
    {PublicText::kFormatting, "A value could not be formatted."},
    {PublicText::kTextList, "A list of texts is too short."},
    {PublicText::kForeignPost, "Nothing was changed: the request came from another site."},
    {PublicText::kUnknownSender, "Nothing was changed: the request does not say where it comes from."},
    {PublicText::kRepeatedField, "Nothing was changed: a field came twice."},
    {PublicText::kTooLarge, "Nothing was changed: the request is too large."},
    {PublicText::kWrongHost, "This site does not answer under that name."},
    {PublicText::kDelete, "The record was not deleted."},
    {PublicText::kNoSuchRecord, "There is no such record."},
    {PublicText::kLeftForm, "Nothing was saved: the record would not be one of this page any more."},
    {PublicText::kConnectionLost, "The database could not be reached, so nothing was changed; try again."},
    {PublicText::kUnknownOutcome,
     "The database was out of reach, so it is not known whether the change was made; look before you repeat "
     "it."},
    {PublicText::kFormToken, "Nothing was changed: the form has expired. Send it again."},
};

std::string_view TextOf(PublicText text) {
  const auto* const row = std::ranges::find(kRows, text, &Row::text);
  return row == std::end(kRows) ? std::string_view() : row->words;
}

}  // namespace

std::string NumberedText(PublicText text) {
  return std::string("Message ")
      .append(std::to_string(static_cast<int>(text)))
      .append(": ")
      .append(TextOf(text));
}

}  // namespace dralo::settings
