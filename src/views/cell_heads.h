#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "html/html_writer.h"
#include "state/render.h"
#include "views/grid_column.h"

namespace dralo::views {

/// Rows of a page alternate, and with them their classes and attributes; the first row is odd.
enum RowParity : std::size_t { kOdd = 0, kEven = 1 };

constexpr std::string_view ParityWord(RowParity parity) { return parity == kOdd ? "odd" : "even"; }

/// What stands in the cells of odd, or of even, rows between the row number in the id and the text. It is
/// made for the first row, and anew only when a row's attributes differ from those of the row before.
class CellHeads {
 public:
  /// `render` and `columns` must outlive the heads.
  CellHeads(state::Render& render, std::span<const GridColumn> columns, RowParity parity)
      : render_(render), columns_(columns), parity_(parity) {}

  /// Takes the attributes that all cells of the next row get.
  void SetAttributes(std::string_view attributes);

  /// The head of a cell; 0 is the row number, `n` the n-th shown column from 1.
  std::string_view Head(std::size_t cell) const {
    return {text_.Collected().data() + parts_[cell].start, parts_[cell].end - parts_[cell].start};
  }

  /// The head without its end: without the alignment, the ">" and what follows.
  std::string_view UnalignedHead(std::size_t cell) const {
    return text_.Collected().substr(parts_[cell].start, parts_[cell].attributes_end - parts_[cell].start);
  }

 private:
  struct Part {
    std::size_t start;
    std::size_t attributes_end;
    std::size_t end;
  };

  void Add(int number, std::string_view column_attributes, bool is_numeric, bool is_unbroken);

  state::Render& render_;
  std::span<const GridColumn> columns_;
  RowParity parity_;
  std::string attributes_;
  html::HtmlWriter text_;
  std::vector<Part> parts_;
};

}  // namespace dralo::views
