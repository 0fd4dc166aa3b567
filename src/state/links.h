#pragma once

#include <cstdint>
#include <string>

#include "html/html_writer.h"
#include "state/render.h"

namespace dralo::state {

/// The part of every link's query string after the record number: count, page size, the SQL text when it
/// travels in the page, and the page's own fields. Kept in Render::state_query_tail.
std::string StateQueryTail(const Render& render);

/// Writes the address that `put` makes so that it can stand between the quotes of an attribute: on a hardened
/// page "&" and other characters of markup are escaped.
template <class Put>
void PutAddress(html::HtmlWriter& out, const Render& render, Put put) {
  if (!render.settings.Hardened) return put(out);
  html::HtmlWriter address;
  put(address);
  out.Write(html::Text{address.Collected()});
}

/// Writes the query string that carries the view's state, with `number` as the current record.
void PutStateQuery(html::HtmlWriter& out, const Render& render, std::int32_t number);

/// Writes the sort order as "&name=value" pairs.
void PutOrderQuery(html::HtmlWriter& out, const Render& render);

/// Writes the address of the add form into an attribute.
void PutAddLink(html::HtmlWriter& out, const Render& render);

/// Writes the address of the grid into an attribute, for the way back from the one-record view.
void PutListLink(html::HtmlWriter& out, const Render& render);

}  // namespace dralo::state
