#pragma once

#include <cstdint>
#include <string_view>

#include "settings/settings.h"

namespace dralo::settings {

/// Whether the grid shows the column: it must not be listed in GridFieldsHide or, when that is blank, it must
/// be listed in GridFieldsShow, unless that is blank too. Columns are named by field name or by their 1-based
/// number, which counts hidden fields too.
bool IsGridFieldShown(const Settings& settings, std::string_view field_name, int column);

/// The same for the form views with FormFieldsHide and FormFieldsShow. They never show the column of
/// EditInsertToken.
bool IsFormFieldShown(const Settings& settings, std::string_view field_name, int column);

/// Whether the edit form shows the field read-only; numbers in the list are compared with `index`.
bool IsFieldReadOnly(const Settings& settings, std::string_view field_name, int index);

/// Whether the column's header gets no sort link.
bool IsGridColNoSort(const Settings& settings, std::string_view field_name, int column);

/// Whether the column's cells are kept on one line.
bool IsGridCellNoBr(const Settings& settings, std::string_view field_name, int column);

/// Whether the values of the column are HTML by design, which a hardened page does not escape.
bool IsGridColHtml(const Settings& settings, std::string_view field_name, int column);

/// The 1-based position in GridFieldsSupressDup of the name, or else of the number; 0 when the column is not
/// listed.
std::int16_t SuppressDuplicatePosition(const Settings& settings, std::string_view field_name, int column);

/// The text at the head of a column.
struct ColumnLabel {
  std::string_view text;
  bool is_field_name = false;  ///< The page has set no text of its own for it.
};

/// The header text of a column: the field name, or what the list of display names gives for it; "&nbsp;" for
/// a name of blanks. Valid as long as the settings and the name.
ColumnLabel GridLabel(const Settings& settings, std::string_view field_name, int column);
ColumnLabel FormLabel(const Settings& settings, std::string_view field_name, int column);

/// The "colspan" of the navigation bar for a recordset of `fields` columns. With GridFieldsShow it is more
/// than the number of visible columns, which browsers accept.
int GridColumnSpan(const Settings& settings, int fields);

}  // namespace dralo::settings
