#include "table_page.h"

namespace serve {
namespace {

constexpr std::int32_t kMostCharacters = 120;

bool CanEdit(const TablePlan& plan, bool can_edit) {
  return can_edit && plan.HasKey() && !plan.table.is_view;
}

void SetUpEditing(dralo::DbView& view, const TablePlan& plan) {
  view.SetEditOptions("ALL");
  view.SetEditSQL(plan.edit_sql);
  view.SetDeleteSQL(plan.delete_sql);
  view.SetEditNewPKStatement(plan.new_keys);
  view.SetEditFieldsReadOnly(plan.read_only);
  view.SetEditConfirmDeleteString("Delete this record?");
  for (const Lookup& lookup : plan.lookups) {
    view.AddEditLookup(lookup.field, lookup.table, lookup.value, lookup.shown, lookup.shown,
                       lookup.can_be_empty);
  }
}

void SetUp(dralo::DbView& view, const TablePlan& plan) {
  view.SetSql(plan.grid_sql);
  view.SetEditPrimaryKeys(plan.keys);
  view.SetOrderByFields(plan.order);
  view.SetGridFieldsHide(plan.hidden);
  view.SetFormFieldsHide(plan.hidden);
  for (const auto& [column, text] : plan.templates)
    view.SetGridFreeFormatCellByCol(static_cast<std::int16_t>(column), text);
  view.SetImageDir("/assets/gfx/");
  view.SetDisplayType("grid");
  view.SetRecordsPerPage(25);
  view.SetDisplayRecordsPerPageSelect(true);
  view.SetRecordsPerPageOptions("25,50,100,500");
  view.SetMemoFieldLimit(kMostCharacters);
}

}  // namespace

Outcome WriteTable(dralo::Environment& environment, const std::string& connection_string,
                   const TablePlan& plan, bool can_edit, dralo::Page& page) {
  dralo::DbView view(environment);
  view.OnStartPage(page);
  view.SetConnectionString(connection_string);
  view.DrConnection()->SetDatabaseEngine("SQLA");  // With this engine long texts can be sorted by too.
  SetUp(view, plan);
  if (CanEdit(plan, can_edit)) SetUpEditing(view, plan);
  view.WriteHtmlTable();
  const bool is_empty = view.CurrentMode() == "grid" && view.RecordCount() == 0;
  Outcome outcome = {view.ErrorMessage(), is_empty};
  view.OnEndPage();
  return outcome;
}

std::string AboutTable(const TablePlan& plan, bool can_edit, const Outcome& outcome) {
  std::string about;
  if (can_edit && plan.table.is_view)
    about = "This is a view: its records are changed in the tables it shows. ";
  if (can_edit && !plan.table.is_view && !plan.HasKey())
    about = "Read-only: this table has no primary key that tells its records apart. ";
  if (outcome.is_empty && outcome.message.empty()) about += "There are no records yet.";
  std::string out = about.empty() ? "" : "<p class=\"about\">" + about + "</p>\n";
  if (!outcome.message.empty())
    out.append("<p class=\"error\" role=\"alert\">").append(outcome.message).append("</p>\n");
  return out;
}

}  // namespace serve
