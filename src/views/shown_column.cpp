#include "views/shown_column.h"

#include "settings/column_settings.h"

namespace dralo::views {

std::string_view ShownColumn::FormattedText(state::Render& render) {
  if (!format_function) format_function.emplace(render, number, form);
  return format_function->CellText(render, *field);
}

void ShownColumn::Put(html::HtmlWriter& out, state::Render& render, std::int32_t record) {
  if (free_format) {
    free_format->Put(out, render, record);
  } else if (is_escaped_value) {
    const std::string_view value = Value(render);
    value.empty() ? out.Write(html::Verbatim{cells::kBlankCell}) : out.Write(html::Text{value});
  } else {
    out.Write(html::Verbatim{Text(render)});
  }
}

ShownColumn MakeShownColumn(const state::Render& render, platform::Recordset& recordset,
                            platform::Field& field, int number) {
  const settings::Settings& settings = render.settings;
  ShownColumn column{
      .number = number,
      .field = &field,
      .kind = platform::KindOf(field.Type()),
      .form = cells::FormOfValues(settings, field.Name(), number),
      .has_format_function = settings::HasColumnSetting(settings.GridFormatCellFunction, number)};
  if (settings::HasColumnSetting(settings.GridFreeFormatCellByCol, number)) {
    column.free_format.emplace(render, recordset, number);
  }
  column.DecideEscaping(settings);
  return column;
}

}  // namespace dralo::views
