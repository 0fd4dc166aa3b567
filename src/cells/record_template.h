#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dralo/recordset.h"
#include "html/html_writer.h"
#include "html/template_places.h"
#include "state/record_link.h"
#include "state/render.h"

namespace dralo::cells {

/// A text with placeholders for the values of a record, split once and written for many records.
class RecordTemplate {
 public:
  /// Splits `text` at `delimiter`: every second piece, from the second on, is a placeholder. That is
  /// DRALOPOSTBACKURL for the address of the record's one-record view, DRALOFORMURL for the same with the
  /// view's key at its end (both in any letter case and with blanks around), else the name of a field of
  /// `recordset`, which must outlive the template. On a hardened page a template that begins at `start` is
  /// read as a browser reads it, to know what its values are.
  RecordTemplate(std::string_view text, std::string_view delimiter, html::TemplateStart start,
                 const state::Render& render, platform::Recordset& recordset);

  bool HasPlaceholders() const { return pieces_.size() > 1; }

  /// Writes the template for the record that the recordset stands on; `number` counts it from 1. Values are
  /// written in their plain text, Null as nothing; on a hardened page as their places demand, but the HTML of
  /// columns that are HTML by design stays what it is in texts. Throws platform::Error at a placeholder that
  /// names no field, and when a value cannot be read; what stands before it is written by then. A hardened
  /// page writes nothing of a template whose values have no clear place, and throws for its first record.
  void Put(html::HtmlWriter& out, state::Render& render, std::int32_t number);

 private:
  struct Piece {
    std::string text = {};  ///< A literal, or the name of an unknown field.
    platform::Field* field = nullptr;
    std::optional<state::RecordLink> link = {};
    bool is_literal = false;
    html::ValuePlace place = {};  ///< Of a placeholder on a hardened page.
    bool is_markup = false;       ///< There its value is HTML, and stands in a text.
  };

  static Piece Placeholder(std::string text, const state::Render& render, platform::Recordset& recordset);

  void FindPlaces(html::TemplateStart start, const state::Render& render, platform::Recordset& recordset);
  void PutInPlace(html::HtmlWriter& out, Piece& piece, state::Render& render, std::int32_t number);

  std::vector<Piece> pieces_;
  bool is_hardened_ = false;
  bool is_refused_ = false;
  std::string refusal_;                          ///< Why, until it was told.
  std::string text_;                             ///< Of a value in its place.
  std::unique_ptr<html::HtmlWriter> link_text_;  ///< Of a link in its place; made with the first.
};

}  // namespace dralo::cells
