#include "views/spreadsheet_export.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cells/format_functions.h"
#include "cells/standard_text.h"
#include "html/html_writer.h"
#include "platform/field_type.h"
#include "settings/column_settings.h"
#include "settings/field_lists.h"

namespace dralo::views {
namespace {

using html::Verbatim;
using settings::Settings;

/// What all cells of an exported column have in common, found out once.
struct Column {
  int number = 0;  ///< Counted from 1, hidden fields included.
  platform::Field* field = nullptr;
  bool is_formatted = false;         ///< Its format function says what the cells hold.
  std::array<std::string, 2> heads;  ///< What stands before the text of a cell, in even and in odd rows.
};

std::string CellHead(Settings& settings, const Column& column, const std::string& parity_tag) {
  const bool is_numeric = platform::IsNumericFieldType(column.field->Type());
  const Verbatim attributes{settings::GridColAttributes(settings, static_cast<std::int16_t>(column.number))};
  html::HtmlWriter head;
  head.Put(R"(<td style="border:thin silver solid" {} {} {})", Verbatim{settings.TDTag}, Verbatim{parity_tag},
           attributes)
      .PutIf(is_numeric, R"( align="right" >)")
      .PutIf(!is_numeric, " >");
  return head.Take();
}

std::vector<Column> Columns(Settings& settings, platform::Recordset& recordset) {
  const auto fields = recordset.Fields();
  std::vector<Column> columns;
  columns.reserve(fields.size());
  int number = 0;
  for (platform::Field* field : fields) {
    if (!settings::IsGridFieldShown(settings, field->Name(), ++number)) continue;
    Column& column = columns.emplace_back();
    column.number = number;
    column.field = field;
    column.is_formatted = settings.ApplyCellFormattingToExcel &&
                          settings::HasColumnSetting(settings.GridFormatCellFunction, number);
    column.heads = {CellHead(settings, column, settings.TDEvenTag),
                    CellHead(settings, column, settings.TDOddTag)};
  }
  return columns;
}

void PutHeader(state::Render& render, std::span<const Column> columns) {
  const Verbatim tag{render.settings.THTag};
  render.out.Put("<tr>\r\n");
  for (const Column& column : columns) {
    const Verbatim attributes{
        settings::GridColHeadAttributes(render.settings, static_cast<std::int16_t>(column.number))};
    render.out.Put(R"(<th style="border:thin silver solid" {})", attributes)
        .PutIf(!attributes.text.empty() && !tag.text.empty(), " ")
        .Put("{} >{}</th>\r\n", tag, Verbatim{column.field->Name()});
  }
  render.out.Put("</tr>\r\n");
}

void PutRow(state::Render& render, std::span<const Column> columns, std::size_t parity) {
  render.out.Put("<tr>\r\n");
  for (const Column& column : columns) {
    const std::string_view text = column.is_formatted
                                      ? cells::GetFormatCellString(render, *column.field, column.number)
                                      : cells::GetStdDbFieldString(render, *column.field);
    render.out.Put("{}{}</td>\r\n", Verbatim{column.heads[parity]}, Verbatim{text});
  }
}

}  // namespace

void WriteExcelTable(state::Render& render, platform::Recordset& recordset) {
  const Settings& settings = render.settings;
  render.out.Put("<table>\r\n");
  const std::vector<Column> columns = Columns(render.settings, recordset);
  if (settings.DisplayHeader) PutHeader(render, columns);
  for (std::int64_t row = 1; row <= settings.RecordsMaxLimit && !recordset.Eof(); ++row) {
    PutRow(render, columns, row % 2 == 0 ? 0 : 1);
    recordset.MoveNext();
    render.out.Put("</tr>\r\n");
  }
  render.out.Put("</table>");
}

}  // namespace dralo::views
