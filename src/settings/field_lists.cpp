#include "settings/field_lists.h"

#include "text/blanks.h"
#include "text/letter_case.h"
#include "text/list.h"

namespace dralo::settings {
namespace {

/// The position in the list of the name, or else of the number; 0 when the column is not listed.
std::int16_t ListedPosition(std::string_view list, std::string_view field_name, int column) {
  const std::int16_t position = text::FindInList(list, field_name);
  return position > 0 ? position : text::FindInList(list, column);
}

bool IsListed(std::string_view list, std::string_view field_name, int column) {
  return ListedPosition(list, field_name, column) > 0;
}

/// For lists where "*" alone means every column.
bool IsListedOrAll(std::string_view list, std::string_view field_name, int column) {
  return text::TrimBlanks(list) == "*" || IsListed(list, field_name, column);
}

bool IsShown(std::string_view hide, std::string_view show, std::string_view field_name, int column) {
  if (!text::IsBlank(hide)) return !IsListed(hide, field_name, column);
  return text::IsBlank(show) || IsListed(show, field_name, column);
}

ColumnLabel Label(std::string_view names, std::string_view field_name, int column) {
  const std::string_view name = text::NthItem(names, column);
  if (name.empty()) return {.text = field_name, .is_field_name = true};
  return {.text = text::IsBlank(name) ? "&nbsp;" : name};
}

int CountItems(std::string_view list) { return text::IsBlank(list) ? 0 : text::CountOf(list, ',') + 1; }

}  // namespace

bool IsGridFieldShown(const Settings& settings, std::string_view field_name, int column) {
  return IsShown(settings.GridFieldsHide, settings.GridFieldsShow, field_name, column);
}

bool IsFormFieldShown(const Settings& settings, std::string_view field_name, int column) {
  const bool is_token = settings.Hardened && !settings.EditInsertToken.empty() &&
                        text::EqualIgnoringCase(text::TrimBlanks(settings.EditInsertToken), field_name);
  if (is_token) return false;
  return IsShown(settings.FormFieldsHide, settings.FormFieldsShow, field_name, column);
}

bool IsFieldReadOnly(const Settings& settings, std::string_view field_name, int index) {
  return IsListedOrAll(settings.EditFieldsReadOnly, field_name, index);
}

bool IsGridColNoSort(const Settings& settings, std::string_view field_name, int column) {
  return IsListedOrAll(settings.GridColsNoSort, field_name, column);
}

bool IsGridCellNoBr(const Settings& settings, std::string_view field_name, int column) {
  return IsListedOrAll(settings.GridCellsNoBr, field_name, column);
}

bool IsGridColHtml(const Settings& settings, std::string_view field_name, int column) {
  return IsListedOrAll(settings.GridColsHtml, field_name, column);
}

std::int16_t SuppressDuplicatePosition(const Settings& settings, std::string_view field_name, int column) {
  return ListedPosition(settings.GridFieldsSupressDup, field_name, column);
}

ColumnLabel GridLabel(const Settings& settings, std::string_view field_name, int column) {
  return Label(settings.GridDisplayFieldNames, field_name, column);
}

ColumnLabel FormLabel(const Settings& settings, std::string_view field_name, int column) {
  return Label(settings.FormDisplayFieldNames, field_name, column);
}

int GridColumnSpan(const Settings& settings, int fields) {
  return fields - CountItems(settings.GridFieldsHide) + CountItems(settings.GridFieldsShow) +
         (settings.GridDisplayIndex ? 1 : 0);
}

}  // namespace dralo::settings
