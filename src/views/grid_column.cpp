#include "views/grid_column.h"

#include "cells/column_settings.h"
#include "util/field_type.h"
#include "views/field_lists.h"

namespace dralo::views {
namespace {

GridColumn Column(const shell::Render& render, platform::Recordset& recordset, platform::Field& field,
                  int number) {
  shell::Settings& settings = render.settings;
  const std::string_view name = field.Name();
  GridColumn column{MakeShownColumn(render, recordset, field, number)};
  column.is_numeric = util::IsNumericFieldType(field.Type());
  column.is_unbroken = IsGridCellNoBr(settings, name, number);
  column.is_linked = number == settings.GridLinkIndex;
  column.suppress_position = SuppressDuplicatePosition(settings, name, number);
  column.attributes = cells::GridColAttributes(settings, static_cast<std::int16_t>(number));
  return column;
}

}  // namespace

std::vector<GridColumn> GridColumns(const shell::Render& render, platform::Recordset& recordset) {
  const auto fields = recordset.Fields();
  std::vector<GridColumn> columns;
  columns.reserve(fields.size());
  int number = 0;
  for (platform::Field* field : fields) {
    ++number;
    if (IsGridFieldShown(render.settings, field->Name(), number)) {
      columns.push_back(Column(render, recordset, *field, number));
    }
  }
  return columns;
}

}  // namespace dralo::views
