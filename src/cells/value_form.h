#pragma once

#include <string_view>

#include "html/text_escape.h"
#include "settings/settings.h"
#include "state/render.h"

namespace dralo::cells {

/// How the cells of a column write the text of a value.
enum class ValueForm {
  kPlain,    ///< Unchanged: the page is not hardened.
  kEscaped,  ///< Escaped, so that it shows unchanged.
  kMarkup,   ///< Unchanged and uncut, because it is HTML by design.
};

ValueForm FormOfValues(const settings::Settings& settings, std::string_view field_name, int column);

/// `text` in that form: itself, or in `render.escaped`, whose content is then replaced.
inline std::string_view InForm(state::Render& render, std::string_view text, ValueForm form) {
  return form == ValueForm::kEscaped ? html::Escaped(text, render.escaped) : text;
}

}  // namespace dralo::cells
