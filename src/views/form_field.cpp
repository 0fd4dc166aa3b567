#include "views/form_field.h"

#include <string>
#include <string_view>

#include "html/html_writer.h"
#include "settings/column_settings.h"
#include "settings/field_lists.h"
#include "text/list.h"
#include "views/label.h"

namespace dralo::views {
namespace {

using html::Verbatim;
using settings::Settings;

void PutWidth(html::HtmlWriter& out, std::string_view width) {
  out.PutIf(!width.empty(), R"( width="{}")", Verbatim{width});
}

void PutLabelCell(html::HtmlWriter& out, const state::Render& render, const FormField& field) {
  const Settings& settings = render.settings;
  std::string scratch;
  out.Put("<th");
  PutWidth(out, text::NthItem(settings.FormCellWidths, 1));
  std::string_view attributes = settings.THTag;
  if (attributes.empty()) attributes = "align=left";
  out.Put(
      " {}>{}</th>", Verbatim{attributes},
      Verbatim{LabelText(render, settings::FormLabel(settings, field.field->Name(), field.number), scratch)});
}

void PutValueCellStart(html::HtmlWriter& out, state::Render& render, int number) {
  const settings::Settings& settings = render.settings;
  out.Put("<td");
  PutWidth(out, text::NthItem(settings.FormCellWidths, 2));
  out.PutIf(!settings.FormTDTag.empty(), " {}", Verbatim{settings.FormTDTag});
  if (settings.ApplyColFormattingToForm) {
    const std::string_view attributes = settings::GridColAttributes(settings, number, render.Errors());
    out.PutIf(!attributes.empty(), " {}", Verbatim{attributes});
  }
  out.Put(">");
}

std::string RowStart(state::Render& render, const FormField& field) {
  const settings::Settings& settings = render.settings;
  html::HtmlWriter out;
  out.Put("<tr").PutIf(settings.UseCSS, R"( class="DRLOTableTR")").Put(">");
  if (settings.DisplayHeader) PutLabelCell(out, render, field);
  PutValueCellStart(out, render, field.number);
  return out.Take();
}

}  // namespace

std::vector<FormField> FormFields(state::Render& render, platform::Recordset& recordset) {
  std::vector<FormField> shown;
  int number = 0;
  for (platform::Field* field : recordset.Fields()) {
    ++number;
    if (!settings::IsFormFieldShown(render.settings, field->Name(), number)) continue;
    FormField& added = shown.emplace_back(FormField{MakeShownColumn(render, recordset, *field, number)});
    if (!render.settings.ApplyCellFormattingToForm) added.has_format_function = false;
    added.DecideEscaping(render.settings);
    added.row_start = RowStart(render, added);
  }
  return shown;
}

}  // namespace dralo::views
