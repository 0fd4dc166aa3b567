#include "cells/record_template.h"

#include <utility>

#include "cells/named_field.h"
#include "util/letter_case.h"
#include "util/list.h"

namespace dralo::cells {

RecordTemplate::RecordTemplate(std::string_view text, std::string_view delimiter, const shell::Render& render,
                               platform::Recordset& recordset) {
  if (text.empty()) return;
  for (std::string& piece : util::Split(text, delimiter)) {
    if (pieces_.size() % 2 == 0) {
      pieces_.push_back({.text = std::move(piece), .is_literal = true});
    } else {
      pieces_.push_back(Placeholder(std::move(piece), render, recordset));
    }
  }
}

RecordTemplate::Piece RecordTemplate::Placeholder(std::string text, const shell::Render& render,
                                                  platform::Recordset& recordset) {
  const std::string_view word = util::TrimBlanks(text);
  if (util::EqualIgnoringCase(word, "DRALOPOSTBACKURL")) {
    return {.link = views::RecordLink(render, recordset)};
  }
  if (util::EqualIgnoringCase(word, "DRALOFORMURL")) {
    return {.link = views::RecordLink::WithViewAtEnd(render, recordset)};
  }
  platform::Field* const field = FindField(recordset, text);
  return {.text = std::move(text), .field = field};
}

void RecordTemplate::Put(util::HtmlWriter& out, shell::Render& render, std::int32_t number) {
  for (Piece& piece : pieces_) {
    if (piece.is_literal) {
      out.Write(util::Verbatim{piece.text});
    } else if (piece.link) {
      piece.link->Put(out, render, number);
    } else if (piece.field != nullptr) {
      out.Write(util::Verbatim{render.Regional().Text(piece.field->Value(), render.scratch)});
    } else {
      throw UnknownField(piece.text);
    }
  }
}

}  // namespace dralo::cells
