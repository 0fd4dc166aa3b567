#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "settings/error_report.h"
#include "settings/settings.h"

namespace dralo::settings {

/// Whether the column has a setting in the store.
bool HasColumnSetting(const ColumnStore& store, int column);

/// The column's setting as stored, valid until the store changes; nothing when the column is not listed, or
/// is listed by a bulk text that is empty or has an odd number of items and so holds no setting for it.
std::optional<std::string_view> FindColumnSetting(const ColumnStore& store, int column);

/// Where a failed `reader` says that it failed: "READER. index=COLUMN, nArrIdx=ELEMENT", with the index, from
/// 0, of the element of ColumnStore::values that should hold the setting; -1 when the column is not listed.
std::string ReaderInMessages(std::string_view reader, const ColumnStore& store, int column);

/// Reports in ErrorMessage that `reader` found no setting for the column.
void ReportMissingSetting(ErrorReport errors, std::string_view reader, const ColumnStore& store, int column);

/// Sets what every cell of the column consists of: a template with field names between delimiters. Failures
/// are reported in ErrorMessage, as by the other setters.
void SetGridFreeFormatCellByCol(Settings& settings, std::int16_t column, std::string_view text);

/// Sets the format function of the column's cells. Blanks around the text are removed for a column that has
/// none yet, and kept when the column has one already.
void SetGridFormatCellFunction(Settings& settings, std::int16_t column, std::string_view text);

/// Sets the attributes of the column's data cells; column 0 holds the row numbers.
void SetGridColAttributes(Settings& settings, std::int16_t column, std::string_view text);

/// Sets the attributes of the column's header cell; column 0 holds the row numbers.
void SetGridColHeadAttributes(Settings& settings, std::int16_t column, std::string_view text);

/// Replaces all templates by those of one text: column number, template, column number, template and so on,
/// separated by GridFreeFormatCellColumnDelimiter. Items are not trimmed: a number with a blank names no
/// column. An empty text removes the templates but leaves their columns listed.
void SetGridFreeFormatCell(Settings& settings, std::string_view text);

/// The column's setting as stored; empty when the column has none. Valid until the settings change.
/// A column whose template is missing in the bulk text is reported in ErrorMessage.
std::string_view GridFreeFormatCellByCol(const Settings& settings, int column, ErrorReport errors);
std::string_view GridFormatCellFunction(const Settings& settings, int column, ErrorReport errors);
std::string_view GridColAttributes(const Settings& settings, int column, ErrorReport errors);
std::string_view GridColHeadAttributes(const Settings& settings, int column, ErrorReport errors);

/// The same for columns that are known to have a setting: a missing one is reported in ErrorMessage.
std::string_view GetFreeCellStringRaw(const Settings& settings, int column, ErrorReport errors);
std::string_view GetFormatCellStringRaw(const Settings& settings, int column, ErrorReport errors);

}  // namespace dralo::settings
