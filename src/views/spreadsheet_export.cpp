#include "views/spreadsheet_export.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "html/html_writer.h"
#include "platform/field_kind.h"
#include "settings/column_settings.h"
#include "settings/field_lists.h"
#include "views/shown_column.h"

namespace dralo::views {
namespace {

using html::Verbatim;
using settings::Settings;

/// What all cells of an exported column have in common, found out once.
struct ExportedColumn : ShownColumn {
  std::array<std::string, 2> heads = {};  ///< What stands before the text of a cell, in even and in odd rows.
};

std::string CellHead(state::Render& render, const ExportedColumn& column, const std::string& parity_tag) {
  const Settings& settings = render.settings;
  const bool is_numeric = platform::IsNumericFieldType(column.field->Type());
  const Verbatim attributes{settings::GridColAttributes(settings, column.number, render.Errors())};
  html::HtmlWriter head;
  head.Put(R"(<td style="border:thin silver solid" {} {} {})", Verbatim{settings.TDTag}, Verbatim{parity_tag},
           attributes)
      .PutIf(is_numeric, R"( align="right" >)")
      .PutIf(!is_numeric, " >");
  return head.Take();
}

std::vector<ExportedColumn> Columns(state::Render& render, platform::Recordset& recordset) {
  const Settings& settings = render.settings;
  const auto fields = recordset.Fields();
  std::vector<ExportedColumn> columns;
  columns.reserve(fields.size());
  int number = 0;
  for (platform::Field* field : fields) {
    if (!settings::IsGridFieldShown(settings, field->Name(), ++number)) continue;
    const bool is_formatted = settings.ApplyCellFormattingToExcel &&
                              settings::HasColumnSetting(settings.GridFormatCellFunction, number);
    ExportedColumn& column = columns.emplace_back();
    column.number = number;
    column.field = field;
    column.has_format_function = is_formatted;
    column.heads = {CellHead(render, column, settings.TDEvenTag),
                    CellHead(render, column, settings.TDOddTag)};
  }
  return columns;
}

void PutExportedHeader(state::Render& render, std::span<const ExportedColumn> columns) {
  const Verbatim tag{render.settings.THTag};
  render.out.Put("<tr>\r\n");
  for (const ExportedColumn& column : columns) {
    const Verbatim attributes{
        settings::GridColHeadAttributes(render.settings, column.number, render.Errors())};
    render.out.Put(R"(<th style="border:thin silver solid" {})", attributes)
        .PutIf(!attributes.text.empty() && !tag.text.empty(), " ")
        .Put("{} >{}</th>\r\n", tag, Verbatim{column.field->Name()});
  }
  render.out.Put("</tr>\r\n");
}

void PutExportedRow(state::Render& render, std::span<ExportedColumn> columns, std::size_t parity) {
  render.out.Put("<tr>\r\n");
  for (ExportedColumn& column : columns) {
    render.out.Put("{}{}</td>\r\n", Verbatim{column.heads[parity]}, Verbatim{column.Text(render)});
  }
}

}  // namespace

void WriteExcelTable(state::Render& render, platform::Recordset& recordset) {
  const Settings& settings = render.settings;
  render.out.Put("<table>\r\n");
  std::vector<ExportedColumn> columns = Columns(render, recordset);
  if (settings.DisplayHeader) PutExportedHeader(render, columns);
  for (std::int64_t row = 1; row <= settings.RecordsMaxLimit && !recordset.Eof(); ++row) {
    PutExportedRow(render, columns, row % 2 == 0 ? 0 : 1);
    recordset.MoveNext();
    render.out.Put("</tr>\r\n");
  }
  render.out.Put("</table>");
}

}  // namespace dralo::views
