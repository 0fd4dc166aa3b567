#include "views/form_grid.h"

#include <string>
#include <string_view>
#include <vector>

#include "html/html_writer.h"
#include "settings/error_report.h"
#include "state/delete_request.h"
#include "state/primary_key_value_list.h"
#include "text/blanks.h"
#include "views/button_bar.h"
#include "views/current_record.h"
#include "views/form_field.h"

namespace dralo::views {
namespace {

using html::Verbatim;
using settings::Settings;

/// Writes the records of one page.
class FormRecords {
 public:
  FormRecords(state::Render& render, platform::Recordset& recordset);

  void Put(std::int32_t& rows);

 private:
  bool IsPageFull(std::int32_t rows) const;
  void PutGap();
  void PutKeyInput();
  void PutButtonBar(std::int32_t row);
  void PutEditButton();
  void PutFormButtonOfRecord();
  void PutFields(std::int32_t row);

  state::Render& render_;
  const Settings& settings_;
  html::HtmlWriter& out_;
  platform::Recordset& recordset_;
  std::vector<FormField> fields_;
  state::PrimaryKeyValueList key_values_;
  bool has_buttons_;
};

FormRecords::FormRecords(state::Render& render, platform::Recordset& recordset)
    : render_(render),
      settings_(render.settings),
      out_(render.out),
      recordset_(recordset),
      fields_(FormFields(render, recordset)),
      key_values_(render.settings, recordset),
      has_buttons_(HasButtonBar(render)) {}

void FormRecords::Put(std::int32_t& rows) {
  while (!IsPageFull(rows) && !recordset_.Eof()) {
    ++rows;
    if (rows == 1) {
      PutKeyInput();
    } else {
      PutGap();
    }
    if (has_buttons_) PutButtonBar(rows);
    PutFields(rows);
    KeepCurrentRecord(render_, recordset_);
    recordset_.MoveNext();
  }
}

bool FormRecords::IsPageFull(std::int32_t rows) const {
  return rows >= render_.view.records_on_page ||
         std::int64_t{render_.view.current_record} + rows > settings_.RecordsMaxLimit;
}

void FormRecords::PutGap() {
  out_.PutIf(settings_.UseCSS,
             "<tr class=\"DRLOTableTRFormGap\"><td class=\"DRLOTableTDFormGap\">&nbsp;</td></tr>\r\n")
      .PutIf(!settings_.UseCSS, "<tr><td>&nbsp;</td></tr>\r\n");
}

/// The input that an Edit button fills with the key of its record; one input serves all records of the page.
/// On hardened pages each button carries the key itself.
void FormRecords::PutKeyInput() {
  out_.PutIf(!settings_.Hardened && !text::IsBlank(settings_.EditPrimaryKeys),
             "<input type=\"hidden\" name=\"{}\" value=''>\r\n", render_.keys(state::key::kPrimaryKey));
}

void FormRecords::PutButtonBar(std::int32_t row) {
  PutButtonBarStart(render_);
  PutEditButton();
  PutAddButton(render_);
  PutButtonBarEnd(render_, row == 1 ? std::string_view(render_.outcome.status_message) : std::string_view());
}

void FormRecords::PutEditButton() {
  if (settings_.Hardened) return PutFormButtonOfRecord();
  out_.Put("<input")
      .PutIf(settings_.UseCSS, R"( class="DraloInputBtn")")
      .Put(R"( type="submit" name="{}"  onclick="FormDraloGrid{}.{}.value=')",
           render_.keys(state::key::kFormEdit), Verbatim{settings_.Tag},
           render_.keys(state::key::kPrimaryKey));
  if (key_values_.Read(render_.Errors())) key_values_.PutInScript(out_);
  out_.Put(R"('"  value="{}">)", Verbatim{settings_.language_tables->buttons[settings::kEdit]});
}

/// The button opens the form, also for records that can only be deleted.
void FormRecords::PutFormButtonOfRecord() {
  if (!state::OffersForm(settings_)) return;
  const bool has_key = key_values_.Read(render_.Errors());
  out_.Put("<button").PutIf(settings_.UseCSS, R"( class="DraloInputBtn")");
  if (has_key) {
    const std::string key = key_values_.Plain();
    out_.Put(R"( type="submit" name="{}" value="{}">)", render_.keys(state::key::kEditPrimaryKey),
             html::Text{key});
  } else {
    out_.Put(R"( type="submit" name="{}" value="1">)", render_.keys(state::key::kFormEdit));
  }
  const auto caption = settings_.edit.update ? settings::kEdit : settings::kDelete;
  out_.Put("{}</button>", Verbatim{settings_.language_tables->buttons[caption]});
}

void FormRecords::PutFields(std::int32_t row) {
  const std::int32_t record = render_.view.current_record + (row - 1);
  out_.Put(R"(<tr><td><table width="100%")")
      .PutIf(settings_.UseCSS, R"( class="DRLOTableFormDataView")")
      .PutIf(!settings_.FormTableTag.empty(), " {}", Verbatim{settings_.FormTableTag})
      .Put(">\r\n");
  for (FormField& field : fields_) {
    out_.Write(Verbatim{field.row_start});
    field.Put(out_, render_, record);
    out_.Put("</td></tr>\r\n");
  }
  out_.Put("</table></td></tr>\r\n");
}

}  // namespace

void MakeFormGrid(state::Render& render, platform::Recordset& recordset, std::int32_t& rows) {
  render.outcome.record.clear();
  rows = 0;
  settings::Guarded(render.Errors(), "MakeFormGrid", [&] {
    FormRecords(render, recordset).Put(rows);
    if (rows == 0) PutButtonBarWithoutRecord(render);
  });
}

}  // namespace dralo::views
