#include "views/sortable_column.h"

#include "platform/field_kind.h"
#include "settings/field_lists.h"
#include "text/ascii.h"

namespace dralo::views {

bool CanSort(const state::Render& render) {
  return !render.settings.has_stored_procedure && !text::ContainsAscii(render.view.sql, "ORDER BY");
}

bool IsSortable(const state::Render& render, const platform::Field& field, int column) {
  const settings::Settings& settings = render.settings;
  const platform::TypeCode type = field.Type();
  const bool is_long = platform::IsMemoFieldType(type) || type == platform::TypeCode::kLongVarBinary;
  const bool takes_long =
      settings.DrConnection != nullptr && settings.DrConnection->Engine() == platform::DatabaseEngine::kSqla;
  return (takes_long || !is_long) && !settings::IsGridColNoSort(settings, field.Name(), column);
}

}  // namespace dralo::views
