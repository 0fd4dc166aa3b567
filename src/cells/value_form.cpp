#include "cells/value_form.h"

#include "settings/field_lists.h"

namespace dralo::cells {

ValueForm FormOfValues(const settings::Settings& settings, std::string_view field_name, int column) {
  if (!settings.Hardened) return ValueForm::kPlain;
  return settings::IsGridColHtml(settings, field_name, column) ? ValueForm::kMarkup : ValueForm::kEscaped;
}

}  // namespace dralo::cells
