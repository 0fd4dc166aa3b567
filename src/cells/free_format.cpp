#include "cells/free_format.h"

#include "cells/column_settings.h"
#include "shell/guard.h"
#include "util/list.h"

namespace dralo::cells {

FreeFormatCell::FreeFormatCell(const shell::Render& render, platform::Recordset& recordset, int column)
    : column_(column),
      name_in_messages_(
          ReaderInMessages("GetFreeCellString", render.settings.GridFreeFormatCellByCol, column)) {
  if (const auto text = FindColumnSetting(render.settings.GridFreeFormatCellByCol, column)) {
    template_.emplace(*text, render.settings.GridFreeFormatCellDataFieldDelimiter, render, recordset);
  }
}

void FreeFormatCell::Put(util::HtmlWriter& out, shell::Render& render, std::int32_t number) {
  shell::Settings& settings = render.settings;
  if (!template_) {
    return ReportMissingSetting(settings, "GetFreeCellString", settings.GridFreeFormatCellByCol, column_);
  }
  shell::Guarded(settings, name_in_messages_, [&] { template_->Put(out, render, number); });
}

RecordTag::RecordTag(std::string_view text, const shell::Render& render, platform::Recordset& recordset)
    : template_(text, "##", render, recordset) {
  if (!template_.HasPlaceholders()) text_.Write(util::Verbatim{text});
}

std::string_view RecordTag::Text(shell::Render& render, std::int32_t number) {
  if (template_.HasPlaceholders()) {
    text_.Clear();
    shell::Guarded(render.settings, "ReplaceFieldValuesFromTag",
                   [&] { template_.Put(text_, render, number); });
  }
  return util::TrimBlanks(text_.Collected());
}

}  // namespace dralo::cells
