#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dralo/recordset.h"
#include "html/html_writer.h"
#include "state/record_link.h"
#include "state/render.h"

namespace dralo::cells {

/// A text with placeholders for the values of a record, split once and written for many records.
class RecordTemplate {
 public:
  /// Splits `text` at `delimiter`: every second piece, from the second on, is a placeholder. That is
  /// DRALOPOSTBACKURL for the address of the record's one-record view, DRALOFORMURL for the same with the
  /// view's key at its end (both in any letter case and with blanks around), else the name of a field of
  /// `recordset`, which must outlive the template.
  RecordTemplate(std::string_view text, std::string_view delimiter, const state::Render& render,
                 platform::Recordset& recordset);

  bool HasPlaceholders() const { return pieces_.size() > 1; }

  /// Writes the template for the record that the recordset stands on; `number` counts it from 1. Values are
  /// written in their plain text, Null as nothing. Throws platform::Error at a placeholder that names no
  /// field, and when a value cannot be read; what stands before it is written by then.
  void Put(html::HtmlWriter& out, state::Render& render, std::int32_t number);

 private:
  struct Piece {
    std::string text = {};  ///< A literal, or the name of an unknown field.
    platform::Field* field = nullptr;
    std::optional<state::RecordLink> link = {};
    bool is_literal = false;
  };

  static Piece Placeholder(std::string text, const state::Render& render, platform::Recordset& recordset);

  std::vector<Piece> pieces_;
};

}  // namespace dralo::cells
