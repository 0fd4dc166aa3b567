#pragma once

#include <cstdint>
#include <string>

#include "shell/render.h"
#include "util/html_writer.h"

namespace dralo::views {

/// What the query string of every link of this rendering carries behind the record number: count, page size,
/// the SQL text when it travels in the page, and the page's own fields. Kept in Render::state_query_tail.
std::string StateQueryTail(const shell::Render& render);

/// Writes the query string that carries the view's state, standing on record `number`.
void PutStateQuery(util::HtmlWriter& out, const shell::Render& render, std::int32_t number);

/// Writes the sort order as "&name=value" pairs.
void PutOrderQuery(util::HtmlWriter& out, const shell::Render& render);

/// Writes the address of the add form.
void PutAddLink(util::HtmlWriter& out, const shell::Render& render);

/// Writes the address of the grid, for the way back from the one-record view.
void PutListLink(util::HtmlWriter& out, const shell::Render& render);

}  // namespace dralo::views
