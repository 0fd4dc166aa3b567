#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "cells/format_functions.h"
#include "cells/free_format.h"
#include "cells/standard_text.h"
#include "dralo/field.h"
#include "dralo/recordset.h"
#include "html/html_writer.h"
#include "platform/field_kind.h"
#include "state/render.h"

namespace dralo::views {

/// A column that a view shows, and the text of its cells: its template, else what its format function makes
/// of the value, else the standard text. Made once per page.
struct ShownColumn {
  int number = 0;  ///< Counted from 1, hidden fields included.
  platform::Field* field = nullptr;
  platform::FieldKind kind = platform::FieldKind::kText;  ///< Of the field's type.
  cells::ValueForm form = cells::ValueForm::kPlain;
  bool has_format_function = false;
  bool is_escaped_value = false;                              ///< Its cells are Value() escaped, or "&nbsp;".
  std::optional<cells::FormatFunction> format_function = {};  ///< Made when the first cell needs it.
  std::optional<cells::FreeFormatCell> free_format = {};

  /// The text of the current record's cell, in the column's form; for columns without a template. Valid until
  /// the next call, the record moves or a scratch of `render` changes.
  std::string_view Text(state::Render& render) {
    return has_format_function ? FormattedText(render)
                               : cells::GetStdDbFieldString(render, *field, kind, form);
  }

  /// The value that is_escaped_value tells of; "" where that is "&nbsp;". Valid as Text().
  std::string_view Value(state::Render& render) { return cells::ShownValue(render, *field, kind); }

  /// To be called when the form and the functions of the column are known.
  void DecideEscaping(const settings::Settings& settings) {
    is_escaped_value = form == cells::ValueForm::kEscaped && !has_format_function && !free_format &&
                       cells::IsShownWhole(settings, kind);
  }

  /// Writes the cell's text for the current record, whose number, counted from 1, is `record`.
  void Put(html::HtmlWriter& out, state::Render& render, std::int32_t record);

 private:
  std::string_view FormattedText(state::Render& render);
};

/// The column of `field`, which belongs to `recordset`, with the settings of column `number`.
ShownColumn MakeShownColumn(const state::Render& render, platform::Recordset& recordset,
                            platform::Field& field, int number);

}  // namespace dralo::views
