#include "views/spreadsheet_export.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "html/html_writer.h"
#include "platform/field_kind.h"
#include "settings/column_settings.h"
#include "settings/field_lists.h"
#include "state/value_text.h"
#include "views/formula.h"
#include "views/shown_column.h"

namespace dralo::views {
namespace {

using html::Verbatim;
using settings::Settings;

/// What all cells of an exported column have in common; made once.
struct ExportedColumn : ShownColumn {
  bool is_hardened = false;
  bool is_numeric = false;

  /// What stands before the text of a cell, in even and in odd rows: the end of the cell before and the tag.
  std::array<std::string, 2> heads = {};
};

constexpr std::string_view kCellEnd = "</td>\r\n";

std::string CellHead(state::Render& render, const ExportedColumn& column, std::string_view end_before,
                     const std::string& parity_tag) {
  const Settings& settings = render.settings;
  const Verbatim attributes{settings::GridColAttributes(settings, column.number, render.Errors())};
  html::HtmlWriter head;
  head.Put(R"({}<td style="border:thin silver solid" {} {} {})", Verbatim{end_before},
           Verbatim{settings.TDTag}, Verbatim{parity_tag}, attributes)
      .PutIf(column.is_numeric, R"( align="right" >)")
      .PutIf(!column.is_numeric, " >");
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
    const std::string_view end_before = columns.empty() ? "" : kCellEnd;
    ExportedColumn& column = columns.emplace_back();
    column.number = number;
    column.field = field;
    column.is_hardened = settings.Hardened;
    column.kind = platform::KindOf(field->Type());
    column.is_numeric = platform::IsNumericFieldType(field->Type());
    // Also columns of HTML are escaped: a spreadsheet program would make cells of their markup.
    if (settings.Hardened) column.form = cells::ValueForm::kEscaped;
    column.has_format_function = is_formatted;
    column.DecideEscaping(settings);
    column.heads = {CellHead(render, column, end_before, settings.TDEvenTag),
                    CellHead(render, column, end_before, settings.TDOddTag)};
  }
  return columns;
}

void PutExportedName(state::Render& render, const ExportedColumn& column) {
  const std::string_view name = column.field->Name();
  render.out.PutIf(column.is_hardened && BeginsFormula(name), "'");
  state::PutInText(render.out, render, name);
}

/// Whether the text of the column's cell must not be taken for a formula. In a numeric column the text of a
/// number may: it begins with its sign.
bool MayBeFormula(const ExportedColumn& column, std::string_view text) {
  if (!BeginsFormula(text)) return false;
  return !column.is_numeric || std::holds_alternative<std::string_view>(column.field->Value());
}

void PutExportedHeader(state::Render& render, std::span<const ExportedColumn> columns) {
  const Verbatim tag{render.settings.THTag};
  render.out.Put("<tr>\r\n");
  for (const ExportedColumn& column : columns) {
    const Verbatim attributes{
        settings::GridColHeadAttributes(render.settings, column.number, render.Errors())};
    render.out.Put(R"(<th style="border:thin silver solid" {})", attributes)
        .PutIf(!attributes.text.empty() && !tag.text.empty(), " ")
        .Put("{} >", tag);
    PutExportedName(render, column);
    render.out.Put("</th>\r\n");
  }
  render.out.Put("</tr>\r\n");
}

void PutExportedValue(html::HtmlWriter& out, Verbatim head, std::string_view value) {
  if (value.empty()) {
    out.Put("{}{}", head, Verbatim{cells::kBlankCell});
  } else if (ValueBeginsFormula(value)) {
    out.Put("{}'{}", head, html::Text{value});
  } else {
    out.Put("{}{}", head, html::Text{value});
  }
}

/// Writes a cell, whose end the next one writes.
void PutExportedCell(state::Render& render, ExportedColumn& column, std::size_t parity) {
  const Verbatim head{column.heads[parity]};
  if (column.is_escaped_value) return PutExportedValue(render.out, head, column.Value(render));
  const Verbatim text{column.Text(render)};
  if (column.is_hardened && MayBeFormula(column, text.text)) {
    render.out.Put("{}'{}", head, text);
  } else {
    render.out.Put("{}{}", head, text);
  }
}

void PutExportedRow(state::Render& render, std::span<ExportedColumn> columns, std::size_t parity) {
  render.out.Put("<tr>\r\n");
  for (ExportedColumn& column : columns) PutExportedCell(render, column, parity);
  render.out.PutIf(!columns.empty(), "</td>\r\n");
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
