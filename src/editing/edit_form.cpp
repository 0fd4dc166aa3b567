#include "editing/edit_form.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "dralo/field.h"
#include "dralo/type_code.h"
#include "editing/conflict_check.h"
#include "editing/field_digest.h"
#include "editing/form_edit_field.h"
#include "editing/insert_token.h"
#include "editing/query_schema.h"
#include "editing/replayed_insert.h"
#include "html/html_writer.h"
#include "settings/error_report.h"
#include "settings/field_lists.h"
#include "settings/language.h"
#include "state/delete_request.h"
#include "state/form_token.h"
#include "text/letter_case.h"
#include "text/list.h"
#include "views/button_bar.h"
#include "views/current_record.h"
#include "views/label.h"

namespace dralo::editing {
namespace {

namespace key = state::key;
using html::Verbatim;
using settings::Settings;

/// Writes one form.
class EditForm {
 public:
  explicit EditForm(state::Render& render)
      : render_(render), settings_(render.settings), out_(render.out), fields_(render) {}

  void Put(platform::Recordset& recordset, std::int32_t& rows);

 private:
  void PutButtonBar(platform::Recordset& recordset);
  void PutStateInputs(platform::Recordset& recordset);
  void PutSaveButton();
  void PutHardenedDeleteButton();
  void PutQuestion();
  void PutDeleteButton();
  void PutFieldTable(platform::Recordset& recordset, bool has_record);
  void PutRow(platform::Field& field, int column);
  void PutLabelCell(const platform::Field& field, int column);

  bool IsKey(std::string_view field_name) const;

  Verbatim ButtonClass() const { return {settings_.UseCSS ? R"( class="DraloInputBtn" )" : " "}; }
  Verbatim Caption(settings::ButtonSlot slot) const { return {settings_.language_tables->buttons[slot]}; }

  state::Render& render_;
  const Settings& settings_;
  html::HtmlWriter& out_;
  FormEditFields fields_;
  std::vector<std::string> key_names_ = KeyNames(settings_);
};

void EditForm::Put(platform::Recordset& recordset, std::int32_t& rows) {
  const bool adds_record = fields_.AddsRecord();
  const bool has_record = !adds_record && !recordset.Eof();
  // What was typed comes back even when somebody has deleted the record meanwhile.
  if (!adds_record && !has_record && !render_.outcome.ShowsPosted())
    return views::PutButtonBarWithoutRecord(render_);
  rows = adds_record || has_record ? 1 : 0;
  PutButtonBar(recordset);
  PutFieldTable(recordset, has_record);
  if (!has_record) return;
  views::KeepCurrentRecord(render_, recordset);
  recordset.MoveNext();
}

void EditForm::PutButtonBar(platform::Recordset& recordset) {
  views::PutButtonBarStart(render_);
  state::PutFormToken(render_);
  if (!fields_.AddsRecord() && state::AsksToDelete(settings_, render_.keys)) return PutQuestion();
  PutStateInputs(recordset);
  if (fields_.AddsRecord() || settings_.edit.update) PutSaveButton();
  if (!settings_.edit.skips_view) {
    out_.Put(R"(&nbsp;<input{}type="submit" name="{}" value="{}"{}>)", ButtonClass(),
             render_.keys(key::kFormView), Caption(settings::kClose), views::WithoutRules(render_));
  }
  if (!fields_.AddsRecord()) {
    views::PutAddButton(render_);
    PutDeleteButton();
  }
  views::PutButtonBarEnd(render_, render_.outcome.status_message);
}

/// Stands in place of the buttons of the form, for visitors whose browser runs no script that asks.
void EditForm::PutQuestion() {
  out_.Put("{}&nbsp;", html::Text{settings_.EditConfirmDeleteString});
  out_.Put(R"(<input{}type="submit" name="{}" value="{}">)", ButtonClass(),
           render_.keys(key::kFormDeleteConfirmed), Caption(settings::kDelete));
  out_.Put(R"(&nbsp;<input{}type="submit" name="{}" value="{}">)", ButtonClass(),
           render_.keys(key::kFormView), Caption(settings::kClose));
  views::PutButtonBarEnd(render_, {});
}

void EditForm::PutStateInputs(platform::Recordset& recordset) {
  out_.Put(R"(<input type="hidden" name="{}" value="1">)", render_.keys(key::kFormEdit));
  out_.Put(R"(<input type="hidden" name="{}" value="{}">)", render_.keys(key::kFormInsert),
           Verbatim{fields_.AddsRecord() ? "1" : ""});
  if (!fields_.AddsRecord()) return;
  if (DetectsReplays(settings_)) {
    const std::string greatest = GreatestKeyOfForm(render_, recordset);
    out_.Put(R"(<input type="hidden" name="{}" value="{}">)", render_.keys(kGreatestKey), Verbatim{greatest});
  }
  if (HasInsertToken(settings_)) {
    const std::string token = InsertTokenOfForm(render_);
    out_.Put(R"(<input type="hidden" name="{}" value="{}">)", render_.keys(key::kInsertToken),
             Verbatim{token});
  }
}

/// The button's script leaves edit mode, so that a successful save shows the record.
void EditForm::PutSaveButton() {
  if (settings_.Hardened) {
    out_.Put(R"(<input{}type="submit" name="{}" value="{}">)", ButtonClass(), render_.keys(key::kFormUpdate),
             Caption(settings::kSave));
    return;
  }
  out_.Put(R"(<input{}type="submit" onclick="FormDraloGrid{}.{}.value=''" name="{}" value="{}">)",
           ButtonClass(), Verbatim{settings_.Tag}, render_.keys(key::kFormEdit),
           render_.keys(key::kFormUpdate), Caption(settings::kSave));
}

void EditForm::PutDeleteButton() {
  if (!state::OffersDelete(settings_)) return;
  if (settings_.Hardened) return PutHardenedDeleteButton();
  out_.Put(R"(&nbsp;<input{}type="submit" onclick="FormDraloGrid{}.{}.value='';)", ButtonClass(),
           Verbatim{settings_.Tag}, render_.keys(key::kFormEdit))
      .PutIf(!settings_.EditConfirmDeleteString.empty(), "return confirm('{}');",
             Verbatim{settings_.EditConfirmDeleteString})
      .Put(R"(" name="{}" value="{}"{}>)", render_.keys(key::kFormDelete), Caption(settings::kDelete),
           views::WithoutRules(render_));
}

/// The script that asks then gives the button the name that says "confirmed".
void EditForm::PutHardenedDeleteButton() {
  out_.Put(R"(&nbsp;<input{}type="submit")", ButtonClass())
      .PutIf(!settings_.EditConfirmDeleteString.empty(), R"( data-confirm="{}" data-confirmed="{}")",
             html::Text{settings_.EditConfirmDeleteString}, render_.keys(key::kFormDeleteConfirmed))
      .Put(R"( name="{}" value="{}">)", render_.keys(key::kFormDelete), Caption(settings::kDelete));
}

void EditForm::PutFieldTable(platform::Recordset& recordset, bool has_record) {
  out_.Put(R"(<tr><td><table width="100%")")
      .PutIf(settings_.UseCSS, R"( class="DRLOTableFormDataEdit")")
      .PutIf(!settings_.FormTableTag.empty(), " {}", Verbatim{settings_.FormTableTag})
      .Put(">\r\n");
  if (has_record && DetectsConflicts(settings_)) fields_.CarryDigests(RecordKeyOf(settings_, recordset));
  int column = 0;
  for (platform::Field* field : recordset.Fields()) {
    ++column;
    if (settings::IsFormFieldShown(settings_, field->Name(), column)) {
      PutRow(*field, column);
    } else if (!fields_.AddsRecord() && IsKey(field->Name())) {
      // A save finds its record by the keys. A new record whose key nobody typed has none: an empty input
      // would be the key's value.
      fields_.PutHidden(*field);
    }
  }
  out_.Put("</table></td></tr>\r\n");
}

void EditForm::PutRow(platform::Field& field, int column) {
  out_.Put("<tr>");
  if (settings_.DisplayHeader) PutLabelCell(field, column);
  out_.Put("<td").PutIf(!settings_.TDTag.empty(), " {}", Verbatim{settings_.TDTag}).Put(">");
  fields_.GetFormEditField(field, column - 1);
  out_.Put("</td></tr>\r\n");
}

void EditForm::PutLabelCell(const platform::Field& field, int column) {
  const std::string_view width = text::NthItem(settings_.FormCellWidths, column);
  const bool is_required = (field.Attributes() & platform::kFieldIsNullable) == 0;
  std::string scratch;
  out_.Put("<th")
      .PutIf(!width.empty(), R"( width="{}")", Verbatim{width})
      .Put(" align=left>")
      .PutIf(is_required && settings_.UseCSS, R"(<span class="DraloRequiredFieldLabel">)")
      .PutIf(is_required && !settings_.UseCSS, "<span>")
      .Write(
          Verbatim{views::LabelText(render_, settings::FormLabel(settings_, field.Name(), column), scratch)})
      .PutIf(is_required, "</span>")
      .Put("</th>");
}

bool EditForm::IsKey(std::string_view field_name) const {
  return std::ranges::any_of(
      key_names_, [&](std::string_view key_name) { return text::EqualIgnoringCase(key_name, field_name); });
}

}  // namespace

void RenderEditForm(state::Render& render, platform::Recordset& recordset, std::int32_t& rows) {
  render.outcome.record.clear();
  rows = 0;
  settings::Guarded(render.Errors(), "RenderEditForm", [&] { EditForm(render).Put(recordset, rows); });
}

}  // namespace dralo::editing
