#include "views/grid_column.h"

#include "platform/field_kind.h"
#include "settings/column_settings.h"
#include "settings/field_lists.h"

namespace dralo::views {
namespace {

GridColumn Column(state::Render& render, platform::Recordset& recordset, platform::Field& field, int number) {
  const settings::Settings& settings = render.settings;
  const std::string_view name = field.Name();
  GridColumn column{MakeShownColumn(render, recordset, field, number)};
  column.is_numeric = platform::IsNumericFieldType(field.Type());
  column.is_unbroken = settings::IsGridCellNoBr(settings, name, number);
  column.is_linked = number == settings.GridLinkIndex;
  column.suppress_position = settings::SuppressDuplicatePosition(settings, name, number);
  column.attributes = settings::GridColAttributes(settings, number, render.Errors());
  return column;
}

}  // namespace

std::vector<GridColumn> GridColumns(state::Render& render, platform::Recordset& recordset) {
  const auto fields = recordset.Fields();
  std::vector<GridColumn> columns;
  columns.reserve(fields.size());
  int number = 0;
  for (platform::Field* field : fields) {
    ++number;
    if (settings::IsGridFieldShown(render.settings, field->Name(), number)) {
      columns.push_back(Column(render, recordset, *field, number));
    }
  }
  return columns;
}

}  // namespace dralo::views
