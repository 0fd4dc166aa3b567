#include "views/shown_column.h"

#include "cells/column_settings.h"
#include "cells/format_functions.h"
#include "cells/standard_text.h"

namespace dralo::views {

std::string_view ShownColumn::Text(shell::Render& render) const {
  if (has_format_function) return cells::GetFormatCellString(render, *field, number);
  return cells::GetStdDbFieldString(render, *field);
}

void ShownColumn::Put(util::HtmlWriter& out, shell::Render& render, std::int32_t record) {
  if (free_format) {
    free_format->Put(out, render, record);
  } else {
    out.Write(util::Verbatim{Text(render)});
  }
}

ShownColumn MakeShownColumn(const shell::Render& render, platform::Recordset& recordset,
                            platform::Field& field, int number) {
  const shell::Settings& settings = render.settings;
  ShownColumn column{.number = number,
                     .field = &field,
                     .has_format_function = cells::HasColumnSetting(settings.GridFormatCellFunction, number)};
  if (cells::HasColumnSetting(settings.GridFreeFormatCellByCol, number)) {
    column.free_format.emplace(render, recordset, number);
  }
  return column;
}

}  // namespace dralo::views
