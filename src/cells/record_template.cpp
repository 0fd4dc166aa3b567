#include "cells/record_template.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "dralo/error.h"
#include "settings/field_lists.h"
#include "state/named_field.h"
#include "text/blanks.h"
#include "text/letter_case.h"
#include "text/list.h"

namespace dralo::cells {
namespace {

bool HoldsMarkup(const state::Render& render, platform::Recordset& recordset, const platform::Field* field) {
  const auto fields = recordset.Fields();
  const auto at = std::ranges::find(fields, field);
  return at != fields.end() &&
         settings::IsGridColHtml(render.settings, field->Name(), static_cast<int>(at - fields.begin()) + 1);
}

}  // namespace

RecordTemplate::RecordTemplate(std::string_view text, std::string_view delimiter, html::TemplateStart start,
                               const state::Render& render, platform::Recordset& recordset)
    : is_hardened_(render.settings.Hardened) {
  if (text.empty()) return;
  for (std::string& piece : text::Split(text, delimiter)) {
    if (pieces_.size() % 2 == 0) {
      pieces_.push_back({.text = std::move(piece), .is_literal = true});
    } else {
      pieces_.push_back(Placeholder(std::move(piece), render, recordset));
    }
  }
  if (is_hardened_ && HasPlaceholders()) FindPlaces(start, render, recordset);
}

void RecordTemplate::FindPlaces(html::TemplateStart start, const state::Render& render,
                                platform::Recordset& recordset) {
  std::vector<std::string_view> literals;
  for (const Piece& piece : pieces_) {
    if (piece.is_literal) literals.push_back(piece.text);
  }
  if (!pieces_.back().is_literal) literals.emplace_back();
  try {
    const std::vector<html::ValuePlace> places = html::FindPlaces(literals, start);
    for (std::size_t at = 0; at < places.size(); ++at) {
      Piece& piece = pieces_[2 * at + 1];
      piece.place = places[at];
      piece.is_markup =
          places[at].kind == html::PlaceKind::kText && HoldsMarkup(render, recordset, piece.field);
    }
  } catch (const platform::Error& error) {
    is_refused_ = true;
    refusal_ = error.Description();
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
  if (is_refused_) {
    if (refusal_.empty()) return;
    throw platform::Error(std::exchange(refusal_, {}));
  }
  for (Piece& piece : pieces_) {
    if (piece.is_literal) {
      out.Write(html::Verbatim{piece.text});
    } else if (is_hardened_) {
      PutInPlace(out, piece, render, number);
    } else if (piece.link) {
      piece.link->Put(out, render, number);
    } else if (piece.field != nullptr) {
      out.Write(html::Verbatim{render.Regional().Text(piece.field->Value(), render.scratch)});
    } else {
      throw state::UnknownField(piece.text);
    }
  }
}

void RecordTemplate::PutInPlace(html::HtmlWriter& out, Piece& piece, state::Render& render,
                                std::int32_t number) {
  text_.clear();
  if (piece.link) {
    if (link_text_ == nullptr) link_text_ = std::make_unique<html::HtmlWriter>();
    link_text_->Clear();
    piece.link->Put(*link_text_, render, number);
    html::AppendAddressInPlace(text_, link_text_->Collected(), piece.place);
  } else if (piece.field != nullptr) {
    const std::string_view value = render.Regional().Text(piece.field->Value(), render.scratch);
    if (piece.is_markup) {
      out.Write(html::Verbatim{value});
      return;
    }
    html::AppendInPlace(text_, value, piece.place);
  } else {
    throw state::UnknownField(piece.text);
  }
  out.Write(html::Verbatim{text_});
}

}  // namespace dralo::cells
