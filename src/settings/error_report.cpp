#include "settings/error_report.h"

#include "text/log_line.h"

namespace dralo::settings {
namespace {

constexpr std::string_view kLineEnd = "<br>";

void AppendAll(std::string& message, std::initializer_list<std::string_view> parts) {
  for (const std::string_view part : parts) message.append(part);
}

void AppendOnce(std::string& to, const std::string& line) {
  if (to.find(line) == to.npos) to += line;
}

}  // namespace

void ErrorReport::Put(PublicText text, std::initializer_list<std::string_view> parts) {
  if (detail_ == nullptr) return AppendAll(*message_, parts);
  AppendOnce(*message_, NumberedText(text).append(kLineEnd));
  PutDetail(text, parts);
}

void ErrorReport::PutDetail(PublicText text, std::initializer_list<std::string_view> parts) {
  std::string whole = NumberedText(text) + " ";
  for (std::string_view part : parts) {
    for (std::size_t at = part.find(kLineEnd); at != part.npos; at = part.find(kLineEnd)) {
      whole.append(part.substr(0, at)).append(" ");
      part.remove_prefix(at + kLineEnd.size());
    }
    whole += part;
  }
  whole.resize(whole.find_last_not_of(' ') + 1);
  const std::string line = text::LogLine(whole) + "\n";
  if (detail_->size() + line.size() <= kMostDetailBytes) AppendOnce(*detail_, line);
}

void ErrorReport::Add(std::string_view description, std::string_view renderer) {
  Put(PublicText::kPart, {description, " in ", renderer, kLineEnd});
}

void ErrorReport::AddStatement(std::string_view description, std::string_view renderer,
                               std::string_view statement, bool shows_statement) {
  const bool is_hardened = detail_ != nullptr;
  if (shows_statement || is_hardened) {
    Put(PublicText::kRequest, {description, " in ", renderer, ".<br>sql='", statement, "'<br>"});
  } else {
    Put(PublicText::kRequest, {description, " in ", renderer, ".<br>"});
  }
}

void ErrorReport::AddMissingKeys() {
  Put(PublicText::kMissingKeys, {"Dralo property EditPrimaryKeys must be set!<br>"});
}

void ErrorReport::AddNoSuchRecord() { Put(PublicText::kNoSuchRecord, {"There is no such record<br>"}); }

void ErrorReport::AddLeftForm() {
  Put(PublicText::kLeftForm, {"The record would not be one of this page any more, so nothing was saved<br>"});
}

void ErrorReport::AddKeyLinkFailure(std::string_view description) {
  Put(PublicText::kKeyLink, {description, ", when trying to construct a Primary Key URL link<br>"});
}

void ErrorReport::AddNewKeyFailure(std::string_view description, std::string_view statement,
                                   bool shows_statement) {
  const bool is_hardened = detail_ != nullptr;
  if (shows_statement || is_hardened) {
    Put(PublicText::kNewKey, {description, " in GetNewPKValue. sql='", statement, "'<br>"});
  } else {
    Put(PublicText::kNewKey, {description, " in GetNewPKValue.<br>"});
  }
}

void ErrorReport::AddLookupFailure(std::string_view description, std::string_view statement) {
  Put(PublicText::kLookup, {description, ". lookup sql=", statement, kLineEnd});
}

void ErrorReport::AddOpeningFailure(std::string_view description, std::string_view statement) {
  Put(PublicText::kOpening, {"Unable to open recordset. sql='", statement, "' ", description, kLineEnd});
}

void ErrorReport::AddAddNewFailure(std::string_view description) {
  Put(PublicText::kAddNew, {"Recordset does not support the AddNew method. ", description, kLineEnd});
}

void ErrorReport::AddUpdateFailure(std::string_view description) {
  Put(PublicText::kUpdate, {"Update failed: ", description, kLineEnd});
}

void ErrorReport::AddFormattingFailure(std::string_view description) {
  Put(PublicText::kFormatting, {description, " Invalid Formatting arguments<br>"});
}

void ErrorReport::AddShortTextList(std::string_view property, std::size_t bound, std::string_view wanted) {
  Put(PublicText::kTextList,
      {"Wrong number of strings set in the ", property, ". ", std::to_string(bound),
       " was given. The correct number of strings separated by comma is ", wanted, "!<br>"});
}

void ErrorReport::AddPublic(PublicText text, std::string_view detail) { Put(text, {detail, kLineEnd}); }

void ErrorReport::AddAll(std::string_view errors, std::string_view detail) {
  if (detail_ != nullptr && message_->find(errors) != message_->npos) return;
  message_->append(errors);
  if (detail_ != nullptr) detail_->append(detail);
}

}  // namespace dralo::settings
