#include "settings/error_report.h"

#include <initializer_list>

namespace dralo::settings {
namespace {

void AppendAll(std::string& message, std::initializer_list<std::string_view> parts) {
  for (const std::string_view part : parts) message.append(part);
}

}  // namespace

void ErrorReport::Add(std::string_view description, std::string_view renderer) {
  AppendAll(*message_, {description, " in ", renderer, "<br>"});
}

void ErrorReport::AddStatement(std::string_view description, std::string_view renderer,
                               std::string_view statement, bool shows_statement) {
  AppendAll(*message_, {description, " in ", renderer, ".<br>"});
  if (shows_statement) AppendAll(*message_, {"sql='", statement, "'<br>"});
}

void ErrorReport::AddMissingKeys() { message_->append("Dralo property EditPrimaryKeys must be set!<br>"); }

void ErrorReport::AddNoSuchRecord() { message_->append("There is no such record<br>"); }

void ErrorReport::AddLeftForm() {
  message_->append("The record would not be one of this page any more, so nothing was saved<br>");
}

void ErrorReport::AddKeyLinkFailure(std::string_view description) {
  AppendAll(*message_, {description, ", when trying to construct a Primary Key URL link<br>"});
}

void ErrorReport::AddNewKeyFailure(std::string_view description, std::string_view statement,
                                   bool shows_statement) {
  AppendAll(*message_, {description, " in GetNewPKValue."});
  if (shows_statement) AppendAll(*message_, {" sql='", statement, "'"});
  message_->append("<br>");
}

void ErrorReport::AddLookupFailure(std::string_view description, std::string_view statement) {
  AppendAll(*message_, {description, ". lookup sql=", statement, "<br>"});
}

void ErrorReport::AddOpeningFailure(std::string_view description, std::string_view statement) {
  AppendAll(*message_, {"Unable to open recordset. sql='", statement, "' ", description, "<br>"});
}

void ErrorReport::AddAddNewFailure(std::string_view description) {
  AppendAll(*message_, {"Recordset does not support the AddNew method. ", description, "<br>"});
}

void ErrorReport::AddUpdateFailure(std::string_view description) {
  AppendAll(*message_, {"Update failed: ", description, "<br>"});
}

void ErrorReport::AddFormattingFailure(std::string_view description) {
  AppendAll(*message_, {description, " Invalid Formatting arguments<br>"});
}

void ErrorReport::AddShortTextList(std::string_view property, std::size_t bound, std::string_view wanted) {
  AppendAll(*message_, {"Wrong number of strings set in the ", property, ". ", std::to_string(bound),
                        " was given. The correct number of strings separated by comma is ", wanted, "!<br>"});
}

}  // namespace dralo::settings
