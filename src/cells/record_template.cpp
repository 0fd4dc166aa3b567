#include "cells/record_template.h"

#include <utility>

#include "state/named_field.h"
#include "text/blanks.h"
#include "text/letter_case.h"
#include "text/list.h"

namespace dralo::cells {

RecordTemplate::RecordTemplate(std::string_view text, std::string_view delimiter, const state::Render& render,
                               platform::Recordset& recordset) {
  if (text.empty()) return;
  for (std::string& piece : text::Split(text, delimiter)) {
    if (pieces_.size() % 2 == 0) {
      pieces_.push_back({.text = std::move(piece), .is_literal = true});
    } else {
      pieces_.push_back(Placeholder(std::move(piece), render, recordset));
    }
  }
}

RecordTemplate::Piece RecordTemplate::Placeholder(std::string text, const state::Render& render,
                                                  platform::Recordset& recordset) {
  const std::string_view word = text::TrimBlanks(text);
  if (text::EqualIgnoringCase(word, "DRALOPOSTBACKURL")) {
    return {.link = state::RecordLink(render, recordset)};
  }
  if (text::EqualIgnoringCase(word, "DRALOFORMURL")) {
    return {.link = state::RecordLink::WithViewAtEnd(render, recordset)};
  }
  platform::Field* const field = state::FindField(recordset, text);
  return {.text = std::move(text), .field = field};
}

void RecordTemplate::Put(html::HtmlWriter& out, state::Render& render, std::int32_t number) {
  for (Piece& piece : pieces_) {
    if (piece.is_literal) {
      out.Write(html::Verbatim{piece.text});
    } else if (piece.link) {
      piece.link->Put(out, render, number);
    } else if (piece.field != nullptr) {
      out.Write(html::Verbatim{render.Regional().Text(piece.field->Value(), render.scratch)});
    } else {
      throw state::UnknownField(piece.text);
    }
  }
}

}  // namespace dralo::cells
