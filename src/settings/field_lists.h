#pragma once

#include <cstdint>
#include <string_view>

#include "settings/settings.h"

namespace dralo::settings {

/// Whether the grid shows the column: not listed in GridFieldsHide or, when that is blank, listed in
/// GridFieldsShow or that is blank too. Columns are named by field name or by their 1-based number, hidden
/// fields counted.
bool IsGridFieldShown(const Settings& settings, std::string_view field_name, int column);

/// The same for the form views with FormFieldsHide and FormFieldsShow. They never show the column of
/// EditInsertToken.
bool IsFormFieldShown(const Settings& settings, std::string_view field_name, int column);

/// Whether the edit form shows the field read-only; `index` is what the list's numbers are compared with.
bool IsFieldReadOnly(const Settings& settings, std::string_view field_name, int index);

/// Whether the column's header gets no sort link.
bool IsGridColNoSort(const Settings& settings, std::string_view field_name, int column);

/// Whether the column's cells are kept on one line.
bool IsGridCellNoBr(const Settings& settings, std::string_view field_name, int column);

/// Whether the values of the column are HTML by design, which a hardened page does not escape.
bool IsGridColHtml(const Settings& settings, std::string_view field_name, int column);

/// The 1-based position in GridFieldsSupressDup of the name, else of the number; 0 when the column is not
/// listed.
std::int16_t SuppressDuplicatePosition(const Settings& settings, std::string_view field_name, int column);

/// What stands for a column at its head.
struct ColumnLabel {
  std::string_view text;
  bool is_field_name = false;  ///< It is no text of the page's own.
};

/// The header text of a column: the field name, or what the list of display names gives for it; "&nbsp;" for
/// a name of blanks. Valid as long as the settings and the name.
ColumnLabel GridLabel(const Settings& settings, std::string_view field_name, int column);
ColumnLabel FormLabel(const Settings& settings, std::string_view field_name, int column);

/// The "colspan" of the navigation bar for a recordset of `fields` columns. With GridFieldsShow set it
/// exceeds the number of visible columns, which browsers accept.
int GridColumnSpan(const Settings& settings, int fields);

}  // namespace dralo::settings
