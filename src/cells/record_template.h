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

/// A text with placeholders for the values of a record, parsed once and written for many records.
class RecordTemplate {
 public:
  /// Splits `text` at `delimiter`: every second piece, beginning with the second, is a placeholder.
  /// DRALOPOSTBACKURL stands for the address of the record's one-record view, DRALOFORMURL for the same with
  /// the view's key at its end (both in any letter case and with blanks around). Every other placeholder is
  /// the name of a field of `recordset`, which must outlive the template. On a hardened page the template,
  /// which begins at `start`, is parsed as a browser does, to know where its values stand.
  RecordTemplate(std::string_view text, std::string_view delimiter, html::TemplateStart start,
                 const state::Render& render, platform::Recordset& recordset);

  bool HasPlaceholders() const { return pieces_.size() > 1; }

  /// Writes the template for the current record, whose number, counted from 1, is `number`. Values are
  /// written as plain text, Null as nothing. On a hardened page they are written as their places demand; but
  /// in texts the columns that are HTML by design are written as they are. Throws platform::Error at a
  /// placeholder that names no field, and when a value cannot be read; what comes before it is written by
  /// then. When values have no clear place, a hardened page writes nothing of the template, and throws for
  /// its first record.
  void Put(html::HtmlWriter& out, state::Render& render, std::int32_t number);

 private:
  struct Piece {
    std::string text = {};  ///< A literal, or the name of an unknown field.
    platform::Field* field = nullptr;
    std::optional<state::RecordLink> link = {};
    bool is_literal = false;
    html::ValuePlace place = {};  ///< Of a placeholder on a hardened page.
    bool is_markup = false;       ///< On a hardened page: the value is HTML and stands in a text.
  };

  static Piece Placeholder(std::string text, const state::Render& render, platform::Recordset& recordset);

  void FindPlaces(html::TemplateStart start, const state::Render& render, platform::Recordset& recordset);
  void PutInPlace(html::HtmlWriter& out, Piece& piece, state::Render& render, std::int32_t number);

  std::vector<Piece> pieces_;
  bool is_hardened_ = false;
  bool is_refused_ = false;
  std::string refusal_;                          ///< Why nothing is written, until it was reported.
  std::string text_;                             ///< The text of a value, as its place demands.
  std::unique_ptr<html::HtmlWriter> link_text_;  ///< A link, as its place demands; made with the first one.
};

}  // namespace dralo::cells
