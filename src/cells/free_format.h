#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "cells/record_template.h"
#include "dralo/recordset.h"
#include "html/html_writer.h"
#include "state/render.h"

namespace dralo::cells {

/// The cells of a column that has a free-format template.
class FreeFormatCell {
 public:
  /// Reads the column's template as it is now, for the records of `recordset`, which must outlive the object.
  FreeFormatCell(const state::Render& render, platform::Recordset& recordset, int column);

  /// Writes the cell of the current record, whose number, counted from 1, is `number`; it may be empty.
  /// Failures are reported in ErrorMessage under GetFreeCellString; what comes before the failure is written.
  void Put(html::HtmlWriter& out, state::Render& render, std::int32_t number);

 private:
  int column_;
  std::string name_in_messages_;
  std::optional<RecordTemplate> template_ = {};  ///< Nothing when the bulk text has none for the column.
};

/// Attributes of rows or cells, with field names between "##" that stand for the record's values.
class RecordTag {
 public:
  /// `recordset` must outlive the tag.
  RecordTag(std::string_view text, const state::Render& render, platform::Recordset& recordset);

  /// The attributes for the current record, without blanks around them; valid until the next call. Failures
  /// are reported in ErrorMessage under ReplaceFieldValuesFromTag; what comes before the failure is returned.
  std::string_view Text(state::Render& render, std::int32_t number);

 private:
  RecordTemplate template_;
  html::HtmlWriter text_;
};

}  // namespace dralo::cells
