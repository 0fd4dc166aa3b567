#include "views/grid_column.h"

#include "cells/column_settings.h"
#include "util/field_type.h"
#include "util/html_writer.h"
#include "views/field_lists.h"

namespace dralo::views {
namespace {

using shell::Settings;
using util::Verbatim;

/// Makes columns with one buffer for the texts of all of them.
class ColumnMaker {
 public:
  ColumnMaker(const shell::Render& render, platform::Recordset& recordset)
      : render_(render), settings_(render.settings), recordset_(recordset) {}

  GridColumn Column(platform::Field& field, int number);
  std::array<std::string, 2> CellStart(int number);

 private:
  void SetFrame(GridColumn& column, bool is_unbroken);

  const shell::Render& render_;
  Settings& settings_;
  platform::Recordset& recordset_;
  util::HtmlWriter text_;
};

GridColumn ColumnMaker::Column(platform::Field& field, int number) {
  GridColumn column;
  column.number = number;
  column.field = &field;
  column.is_numeric = util::IsNumericFieldType(field.Type());
  column.has_format_function = cells::HasColumnSetting(settings_.GridFormatCellFunction, number);
  column.is_linked = number == settings_.GridLinkIndex;
  column.suppress_position = SuppressDuplicatePosition(settings_, field.Name(), number);
  column.start = CellStart(number);
  SetFrame(column, IsGridCellNoBr(settings_, field.Name(), number));
  if (cells::HasColumnSetting(settings_.GridFreeFormatCellByCol, number)) {
    column.free_format.emplace(render_, recordset_, number);
  }
  return column;
}

std::array<std::string, 2> ColumnMaker::CellStart(int number) {
  const Verbatim attributes{cells::GridColAttributes(settings_, static_cast<std::int16_t>(number))};
  std::array<std::string, 2> start;
  for (const RowParity parity : {kOdd, kEven}) {
    text_.Put(R"(_{}")", number)
        .PutIf(settings_.UseCSS, R"(class="DRLOTableTD{}")", Verbatim{ParityWord(parity)})
        .PutIf(settings_.UseCSS && !attributes.text.empty(), " ")
        .Write(attributes);
    start[parity] = text_.Take();
  }
  return start;
}

/// Sets the two fixed texts around the text of the column's cells.
void ColumnMaker::SetFrame(GridColumn& column, bool is_unbroken) {
  text_.PutIf(column.is_numeric, R"( align="right")").Put(">").PutIf(is_unbroken, "<nobr>");
  column.open = text_.Take();
  text_.PutIf(is_unbroken, "</nobr>").Put("</td>\r\n");
  column.close = text_.Take();
}

}  // namespace

GridColumns::GridColumns(const shell::Render& render, platform::Recordset& recordset) {
  ColumnMaker maker(render, recordset);
  if (render.settings.GridDisplayIndex) index_start = maker.CellStart(0);
  int number = 0;
  for (platform::Field* field : recordset.Fields()) {
    ++number;
    if (IsGridFieldShown(render.settings, field->Name(), number)) {
      shown.push_back(maker.Column(*field, number));
    }
  }
}

}  // namespace dralo::views
