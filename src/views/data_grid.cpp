#include "views/data_grid.h"

#include <array>
#include <exception>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cells/free_format.h"
#include "dralo/error.h"
#include "html/html_writer.h"
#include "settings/error_report.h"
#include "settings/field_lists.h"
#include "state/record_link.h"
#include "text/blanks.h"
#include "text/letter_case.h"
#include "views/cell_heads.h"
#include "views/current_record.h"
#include "views/grid_column.h"
#include "views/grid_header.h"

namespace dralo::views {
namespace {

using html::Verbatim;
using settings::Settings;

/// The texts joined by single blanks; empty when all are blank. Two blanks in a row become one, in a single
/// pass.
std::string Combined(std::initializer_list<std::string_view> texts) {
  std::string combined;
  for (const std::string_view text : texts) combined.append(text).append(" ");
  if (text::IsBlank(combined)) return "";
  combined.pop_back();
  for (std::size_t at = combined.find("  "); at != combined.npos; at = combined.find("  ", at + 1)) {
    combined.erase(at, 1);
  }
  return combined;
}

std::string CellTag(const Settings& settings, RowParity parity) {
  const bool odd = parity == kOdd;
  return Combined({settings.TDTag, settings.GridTDTag, odd ? settings.TDOddTag : settings.TDEvenTag,
                   odd ? settings.GridTDOddTag : settings.GridTDEvenTag});
}

std::string RowTag(const Settings& settings, RowParity parity) {
  return Combined({settings.GridTRTag, parity == kOdd ? settings.GridTROddTag : settings.GridTREvenTag});
}

/// Writes the rows of one page.
class GridRows {
 public:
  GridRows(state::Render& render, platform::Recordset& recordset, std::span<GridColumn> columns);

  void Put(std::int32_t& rows);

 private:
  bool IsPageFull(std::int32_t rows) const;
  void StartRow(std::int32_t row);
  void PutRow();
  void PutIndexCell();
  void PutCell(GridColumn& column, std::size_t cell);
  void PutSuppressedCell(std::size_t cell);
  void PutFreeFormatCell(GridColumn& column, std::size_t cell);
  void PutLinkedCell(const GridColumn& column, std::size_t cell, std::string_view text);
  void PutTextCell(const GridColumn& column, std::size_t cell, std::string_view text);
  void PutHead(std::string_view head);
  void PutLinkStart();
  bool RepeatsLastValue(const GridColumn& column);
  void LeaveRecord(std::int32_t row);

  state::Render& render_;
  const Settings& settings_;
  html::HtmlWriter& out_;
  platform::Recordset& recordset_;
  std::span<GridColumn> columns_;
  std::array<CellHeads, 2> heads_;
  std::array<cells::RecordTag, 2> cell_tags_;
  std::array<cells::RecordTag, 2> row_tags_;
  state::RecordLink link_;

  /// The value last written, by position in GridFieldsSupressDup; nothing before the first.
  std::vector<std::optional<std::string>> last_values_;

  // Of the current row.
  std::int32_t record_ = 0;  ///< Counted from 1 over all pages.
  CellHeads* row_heads_ = nullptr;
  html::HtmlWriter cell_start_;  ///< The beginning of all its cells.
};

GridRows::GridRows(state::Render& render, platform::Recordset& recordset, std::span<GridColumn> columns)
    : render_(render),
      settings_(render.settings),
      out_(render.out),
      recordset_(recordset),
      columns_(columns),
      heads_{CellHeads(render, columns_, kOdd), CellHeads(render, columns_, kEven)},
      cell_tags_{cells::RecordTag(CellTag(settings_, kOdd), render, recordset),
                 cells::RecordTag(CellTag(settings_, kEven), render, recordset)},
      row_tags_{cells::RecordTag(RowTag(settings_, kOdd), render, recordset),
                cells::RecordTag(RowTag(settings_, kEven), render, recordset)},
      link_(state::RecordLink::InAttribute(render, recordset)) {
  for (const GridColumn& column : columns_) {
    const auto position = static_cast<std::size_t>(column.suppress_position);
    if (position >= last_values_.size()) last_values_.resize(position + 1);
  }
}

void GridRows::Put(std::int32_t& rows) {
  while (!IsPageFull(rows) && !recordset_.Eof()) {
    ++rows;
    StartRow(rows);
    PutRow();
    LeaveRecord(rows);
    out_.Put("</tr>\r\n");
  }
}

bool GridRows::IsPageFull(std::int32_t rows) const {
  return rows >= render_.view.page_size ||
         std::int64_t{render_.view.current_record} + rows > settings_.RecordsMaxLimit;
}

void GridRows::StartRow(std::int32_t row) {
  const RowParity parity = row % 2 == 1 ? kOdd : kEven;
  const Verbatim tag{settings_.Tag};
  record_ = render_.view.current_record + (row - 1);
  row_heads_ = &heads_[parity];
  row_heads_->SetAttributes(cell_tags_[parity].Text(render_, record_));
  cell_start_.Clear();
  cell_start_.Put(R"(<td id="drl{}cell_{})", tag, row);

  const std::string_view row_attributes = row_tags_[parity].Text(render_, record_);
  out_.Put(R"(<tr id="drl{}row_{}")", tag, row)
      .PutIf(settings_.UseCSS, R"(class="DRLOTableTR{}")", Verbatim{ParityWord(parity)})
      .PutIf(!row_attributes.empty(), " {}", Verbatim{row_attributes})
      .Put(">\r\n");
}

void GridRows::PutRow() {
  if (settings_.GridDisplayIndex) PutIndexCell();
  std::size_t cell = 0;
  for (GridColumn& column : columns_) PutCell(column, ++cell);
}

void GridRows::PutIndexCell() {
  PutHead(row_heads_->Head(0));
  if (settings_.GridLinkIndex == 0) {
    PutLinkStart();
    out_.Put("{}</a></td>\r\n", record_);
  } else {
    out_.Put("{}</td>\r\n", record_);
  }
}

void GridRows::PutCell(GridColumn& column, std::size_t cell) {
  if (column.suppress_position > 0 && RepeatsLastValue(column)) return PutSuppressedCell(cell);
  if (column.free_format) return PutFreeFormatCell(column, cell);
  const std::string_view text = column.Text(render_);
  if (column.is_linked && !column.has_format_function) return PutLinkedCell(column, cell, text);
  PutTextCell(column, cell, text);
}

void GridRows::PutSuppressedCell(std::size_t cell) {
  PutHead(row_heads_->UnalignedHead(cell));
  // Pages without classes get a stray quotation mark here; styles and scripts may count on it.
  out_.PutIf(!settings_.UseCSS, R"(")").Put(">&nbsp;</td>\r\n");
}

std::string_view CellEnd(const GridColumn& column) {
  return column.is_unbroken ? "</nobr></td>\r\n" : "</td>\r\n";
}

void GridRows::PutFreeFormatCell(GridColumn& column, std::size_t cell) {
  PutHead(row_heads_->Head(cell));
  column.free_format->Put(out_, render_, record_);
  out_.Write(Verbatim{CellEnd(column)});
}

void GridRows::PutLinkedCell(const GridColumn& column, std::size_t cell, std::string_view text) {
  PutHead(row_heads_->Head(cell));
  PutLinkStart();
  out_.Put("{}</a>{}", Verbatim{text}, Verbatim{CellEnd(column)});
}

void GridRows::PutTextCell(const GridColumn& column, std::size_t cell, std::string_view text) {
  const Verbatim start{cell_start_.Collected()};
  const Verbatim head{row_heads_->Head(cell)};
  if (column.is_unbroken) {
    out_.Put("{}{}{}</nobr></td>\r\n", start, head, Verbatim{text});
  } else {
    out_.Put("{}{}{}</td>\r\n", start, head, Verbatim{text});
  }
}

void GridRows::PutHead(std::string_view head) {
  out_.Put("{}{}", Verbatim{cell_start_.Collected()}, Verbatim{head});
}

void GridRows::PutLinkStart() {
  out_.Put("<a").PutIf(settings_.UseCSS, R"( class="DRLOTable")").Put(R"( href=")");
  link_.Put(out_, render_, record_);
  out_.Put(R"(">)");
}

bool GridRows::RepeatsLastValue(const GridColumn& column) {
  const std::string_view value = render_.Regional().Text(column.field->Value(), render_.scratch);
  std::optional<std::string>& last = last_values_[static_cast<std::size_t>(column.suppress_position)];
  if (!last) {
    last.emplace(value);
    return false;
  }
  const bool repeats = text::EqualIgnoringCase(*last, value);
  last->assign(value);
  return repeats;
}

void GridRows::LeaveRecord(std::int32_t row) {
  if (row == 1) KeepCurrentRecord(render_, recordset_);
  recordset_.MoveNext();
}

void PutGrid(state::Render& render, platform::Recordset& recordset, std::int32_t& rows) {
  std::vector<GridColumn> columns = GridColumns(render, recordset);
  if (render.settings.DisplayHeader) PutGridHeader(render, columns, render.view.current_record + rows - 1);
  rows = 0;
  GridRows(render, recordset, columns).Put(rows);
}

void Report(settings::ErrorReport errors, int number, std::string_view description) {
  errors.Add(std::to_string(number).append(" ").append(description), "MakeDataGrid");
}

}  // namespace

int DisplayedGridColumns(const Settings& settings, platform::Recordset& recordset) {
  int number = 0;
  int displayed = settings.GridDisplayIndex ? 1 : 0;
  for (const platform::Field* field : recordset.Fields()) {
    if (settings::IsGridFieldShown(settings, field->Name(), ++number)) ++displayed;
  }
  return displayed;
}

void MakeDataGrid(state::Render& render, platform::Recordset& recordset, std::int32_t& rows) {
  render.outcome.record.clear();
  // Not Guarded(): the message of a grid begins with the number of the error.
  try {
    PutGrid(render, recordset, rows);
  } catch (const platform::Error& error) {
    Report(render.Errors(), error.Number(), error.Description());
  } catch (const std::exception& error) {
    Report(render.Errors(), 0, error.what());
  }
}

}  // namespace dralo::views
