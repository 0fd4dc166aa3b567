#include "cells/free_format.h"

#include "settings/column_settings.h"
#include "settings/error_report.h"
#include "text/blanks.h"

namespace dralo::cells {

FreeFormatCell::FreeFormatCell(const state::Render& render, platform::Recordset& recordset, int column)
    : column_(column),
      name_in_messages_(
          settings::ReaderInMessages("GetFreeCellString", render.settings.GridFreeFormatCellByCol, column)) {
  if (const auto text = settings::FindColumnSetting(render.settings.GridFreeFormatCellByCol, column)) {
    template_.emplace(*text, render.settings.GridFreeFormatCellDataFieldDelimiter, html::TemplateStart::kText,
                      render, recordset);
  }
}

void FreeFormatCell::Put(html::HtmlWriter& out, state::Render& render, std::int32_t number) {
  if (!template_) {
    return settings::ReportMissingSetting(render.Errors(), "GetFreeCellString",
                                          render.settings.GridFreeFormatCellByCol, column_);
  }
  settings::Guarded(render.Errors(), name_in_messages_, [&] { template_->Put(out, render, number); });
}

RecordTag::RecordTag(std::string_view text, const state::Render& render, platform::Recordset& recordset)
    : template_(text, "##", html::TemplateStart::kAttributes, render, recordset) {
  if (!template_.HasPlaceholders()) text_.Write(html::Verbatim{text});
}

std::string_view RecordTag::Text(state::Render& render, std::int32_t number) {
  if (template_.HasPlaceholders()) {
    text_.Clear();
    settings::Guarded(render.Errors(), "ReplaceFieldValuesFromTag",
                      [&] { template_.Put(text_, render, number); });
  }
  return text::TrimBlanks(text_.Collected());
}

}  // namespace dralo::cells
