#include "settings/setters.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "settings/own_errors.h"
#include "text/ascii.h"
#include "text/blanks.h"
#include "text/letter_case.h"
#include "text/list.h"

namespace dralo::settings {
namespace {

/// The value of the tag's width attribute without quotes; empty when it has none.
std::string WidthOf(std::string_view tag) {
  const std::size_t name = text::FindAscii(tag, "WIDTH");
  const std::size_t equals = name == tag.npos ? name : tag.find('=', name);
  if (equals == tag.npos) return {};
  tag.remove_prefix(equals + 1);
  tag.remove_prefix(std::min(tag.find_first_not_of(' '), tag.size()));
  std::string width(tag.substr(0, tag.find(' ')));
  std::erase_if(width, [](char c) { return c == '"' || c == '\''; });
  return width;
}

void TakeWidth(Settings& settings, std::string_view tag) {
  if (settings.Width.empty() && text::ContainsAscii(tag, "WIDTH")) settings.Width = WidthOf(tag);
}

bool IsQuery(std::string_view sql) {
  return text::EqualIgnoringCase(text::TrimBlanks(sql).substr(0, 7), "SELECT ");
}

/// Replaces `table` by the list's items. When there are too few, the message gives the upper bound of the
/// items, which is one less than their count.
void ReplaceTable(Settings& settings, std::vector<std::string> LanguageTables::*table, std::string_view list,
                  std::size_t least_bound, std::string_view name, std::string_view wanted) {
  std::vector<std::string> items = text::Split(list);
  const std::size_t bound = items.size() - 1;
  if (bound < least_bound) {
    return OwnErrors(settings).AddShortTextList(name, bound, wanted);
  }
  auto tables = std::make_shared<LanguageTables>(*settings.language_tables);
  (*tables).*table = std::move(items);
  settings.language_tables = std::move(tables);
}

}  // namespace

void SetSql(Settings& settings, platform::Environment& environment, std::string value) {
  settings.sql = std::move(value);
  if (text::IsBlank(settings.FormSQL)) settings.FormSQL = settings.sql;
  if (text::IsBlank(settings.EditSQL)) settings.EditSQL = settings.sql;
  settings.has_stored_procedure = !IsQuery(settings.sql);
  if (!settings.has_stored_procedure) return;
  // The command's connection is looked up when it runs: the page may set it after the statement.
  auto command = platform::Create<platform::Command>(environment, "ADODB.Command");
  command->command_text = settings.sql;
  settings.StoredProcCommand = std::move(command);
}

void SetFormSql(Settings& settings, std::string value) {
  const bool edit_follows = text::IsBlank(settings.EditSQL) || settings.EditSQL == settings.sql;
  if (edit_follows) settings.EditSQL = value;
  settings.FormSQL = std::move(value);
  settings.ApplyCellFormattingToForm = false;
  settings.ApplyColFormattingToForm = false;
}

void SetEditOptions(Settings& settings, std::string_view value) {
  settings.EditOptions = text::ToUpper(text::TrimBlanks(value));
  const bool all = text::ContainsAscii(settings.EditOptions, "ALL");
  if (all) settings.EditOptions += " ADD UPDATE DELETE";
  const auto has = [&](std::string_view word) { return text::ContainsAscii(settings.EditOptions, word); };
  settings.edit = {.add = has("ADD"),
                   .update = has("UPDATE"),
                   .remove = has("DELETE"),
                   .save = all || value.find("UPDATE") != value.npos,
                   .skips_view = has("NOVIEW")};
}

void SetEditRules(Settings& settings, std::int16_t column, std::string_view rules) {
  settings.EditRules.erase(column);
  if (!text::IsBlank(rules)) settings.EditRules.emplace(column, rules);
}

void SetTableTag(Settings& settings, std::string_view value) {
  settings.TableTag = text::ContainsAscii(value, "CELLSPACING") ? "" : R"(cellspacing="0" )";
  settings.TableTag += value;
  TakeWidth(settings, settings.TableTag);
}

void SetGridTableTag(Settings& settings, std::string value) {
  settings.GridTableTag = std::move(value);
  TakeWidth(settings, settings.GridTableTag);
}

void SetWidth(Settings& settings, std::string_view value) {
  settings.Width = value;
  std::erase_if(settings.Width, [](char c) { return c == '"' || c == '\''; });
}

void SetDisplayType(Settings& settings, std::string value) {
  const auto has = [&](std::string_view word) { return text::ContainsAscii(value, word); };
  settings.display = has("FORM")      ? DisplayKind::kForm
                     : has("DEFAULT") ? DisplayKind::kFormWhenOnePerPage
                                      : DisplayKind::kGrid;
  settings.DisplayType = std::move(value);
}

void SetDisplayNavBar(Settings& settings, std::string value) {
  const auto has = [&](std::string_view word) { return text::ContainsAscii(value, word); };
  const bool top = has("TOP") || has("BOTH");
  settings.bar = {.top = top, .bottom = has("BOTTOM") || has("BOTH")};
  if (has("NONE")) settings.bar = {};
  if (top && settings.DisplayNavBarFirstLastBtn) settings.CountRecords = true;
  settings.DisplayNavBar = std::move(value);
}

void SetDisplayNavBarTextOptions(Settings& settings, std::string value) {
  const std::string_view word = text::TrimBlanks(value);
  settings.counters = {.records = !text::EqualIgnoringCase(word, "PAGES"),
                       .pages = !text::EqualIgnoringCase(word, "RECORDS")};
  settings.DisplayNavBarTextOptions = std::move(value);
}

void SetRecordsPerPageSelectPlacement(Settings& settings, std::string value) {
  const std::string_view word = text::TrimBlanks(value);
  settings.page_size_select = {.top = text::EqualIgnoringCase(word, "top"),
                               .bottom = text::EqualIgnoringCase(word, "bottom")};
  settings.RecordsPerPageSelectPlacement = std::move(value);
}

void SetDisplayNavBarFirstLastBtn(Settings& settings, bool value) {
  settings.DisplayNavBarFirstLastBtn = value;
  if (value) settings.CountRecords = true;
}

void SetRecordsPerPage(Settings& settings, std::int64_t value) {
  using Limits = std::numeric_limits<std::int16_t>;
  if (value >= settings.RecordsMaxLimit || value < Limits::min() || value > Limits::max()) return;
  settings.RecordsPerPage = static_cast<std::int16_t>(value);
}

void SetAdoRecordset(Settings& settings, std::shared_ptr<platform::Recordset> value) {
  settings.has_supplied_recordset = value != nullptr;
  if (value != nullptr) settings.CountRecords = false;
  settings.ADORecordset = std::move(value);
}

void SetStoredProcCommand(Settings& settings, std::shared_ptr<platform::Command> value) {
  settings.has_stored_procedure = value != nullptr;
  settings.StoredProcCommand = std::move(value);
}

void SetConnectionString(Settings& settings, platform::Environment& environment, std::string value) {
  settings.ConnectionString = std::move(value);
  settings.DrConnection = platform::Create<platform::PageConnection>(environment, "Dralo.DBConnection");
  settings.owns_connection = true;
  settings.DrConnection->Connection()->Open(settings.ConnectionString, "", "", -1);
}

void SetDrConnection(Settings& settings, std::shared_ptr<platform::PageConnection> value) {
  // A connection that the view had opened itself is given back when its last owner lets go of it.
  settings.owns_connection = false;
  settings.DrConnection = std::move(value);
}

void SetLocale(Settings& settings, platform::Environment& environment, std::string value) {
  settings.locale_environment = value.empty() ? nullptr : &environment.InLocale(value);
  settings.Locale = std::move(value);
}

void SetLanguage(Settings& settings, std::string value) {
  auto tables = BuiltInTables(value);
  if (tables == nullptr) return;
  settings.language_tables = std::move(tables);
  settings.Language = std::move(value);
}

void SetLanguageString(Settings& settings, std::string_view list) {
  ReplaceTable(settings, &LanguageTables::navigation, list, 11, "LanguageString", "12");
}

void SetLanguageBtnString(Settings& settings, std::string_view list) {
  ReplaceTable(settings, &LanguageTables::buttons, list, 4, "LanguageBtnString", "5");
}

void SetLangUpdString(Settings& settings, std::string_view list) {
  ReplaceTable(settings, &LanguageTables::updates, list, 2, "LanguageUpdString", "3");
}

}  // namespace dralo::settings
