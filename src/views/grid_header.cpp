#include "views/grid_header.h"

#include <string>
#include <string_view>

#include "settings/column_settings.h"
#include "settings/field_lists.h"
#include "state/links.h"
#include "state/request_keys.h"
#include "text/list.h"
#include "views/label.h"
#include "views/sortable_column.h"

namespace dralo::views {
namespace {

namespace key = state::key;
using html::Verbatim;
using settings::Settings;

/// The names of columns as sort links. What all addresses have in common is put together once.
class SortLinks {
 public:
  SortLinks(const state::Render& render, std::int32_t bookmark)
      : render_(render),
        settings_(render.settings),
        ampersand_{settings_.Hardened ? "&amp;" : "&"},
        any_(CanSort(render)) {
    if (any_) PrepareAddress(bookmark);
  }

  bool Has(const GridColumn& column) const {
    return any_ && IsSortable(render_, *column.field, column.number);
  }

  void Put(const GridColumn& column, Verbatim name) const;

 private:
  void PrepareAddress(std::int32_t bookmark);

  const state::Render& render_;
  const Settings& settings_;
  Verbatim ampersand_;
  bool any_;
  html::HtmlWriter before_number_;
  html::HtmlWriter after_number_;
};

void SortLinks::PrepareAddress(std::int32_t bookmark) {
  before_number_.Put("<a").PutIf(settings_.UseCSS, R"( class="DRLOTableTH")").Put(R"( href=")");
  state::PutAddress(before_number_, render_, [&](html::HtmlWriter& address) {
    address.Put("{}?", Verbatim{render_.script_name});
    state::PutStateQuery(address, render_, render_.view.current_record);
    address.Put("&{}=", render_.keys(key::kOrderByFields));
  });
  after_number_.Put("{}{}={}", ampersand_, render_.keys(key::kBookmark), bookmark);
}

void PutArrow(const state::Render& render) {
  const Verbatim folder{render.settings.ImageDir};
  if (render.view.is_descending) {
    render.out.Put(R"(&nbsp;<img border="0" src="{}orderdesc.gif">)", folder);
  } else {
    render.out.Put(R"(&nbsp;<img border="0" src="{}orderasc.gif">)", folder);
  }
}

/// A click on the sorted column reverses its order; on another column it sorts ascending.
void SortLinks::Put(const GridColumn& column, Verbatim name) const {
  const bool is_sorted = render_.view.order_by == std::to_string(column.number);
  render_.out
      .Put("{}{}{}", Verbatim{before_number_.Collected()}, column.number, Verbatim{after_number_.Collected()})
      .PutIf(is_sorted && !render_.view.is_descending, "{}{}=True", ampersand_,
             render_.keys(key::kOrderByDesc))
      .Put(R"("><nobr>{})", name);
  if (is_sorted) PutArrow(render_);
  render_.out.Put("</nobr></a>");
}

/// The start of a header cell with the column's own attributes.
void PutCellStart(state::Render& render, int column) {
  const auto attributes = settings::GridColHeadAttributes(render.settings, column, render.Errors());
  render.out.Put("<th ").PutIf(!attributes.empty(), "{} ", Verbatim{attributes});
}

void PutTHTag(const state::Render& render) {
  const std::string& tag = render.settings.THTag;
  render.out.PutIf(!tag.empty(), " {} ", Verbatim{tag});
}

void PutIndexCell(state::Render& render) {
  PutCellStart(render, 0);
  if (render.settings.UseCSS) {
    render.out.Put(R"(class="DRLOTableTH")");
  } else {
    PutTHTag(render);
  }
  render.out.Put(">#</th>\r\n");
}

void PutCell(state::Render& render, const GridColumn& column, const SortLinks& links) {
  const Settings& settings = render.settings;
  const std::string_view width = text::NthItem(settings.GridCellWidths, column.number);
  std::string scratch;
  const Verbatim name{
      LabelText(render, settings::GridLabel(settings, column.field->Name(), column.number), scratch)};

  PutCellStart(render, column.number);
  PutTHTag(render);
  render.out.Put(R"(align="{}")", Verbatim{column.is_numeric ? "right" : "left"})
      .PutIf(settings.UseCSS, R"( class="DRLOTableTH")")
      .PutIf(!width.empty(), R"( width="{}")", Verbatim{width})
      .Put(">");
  if (links.Has(column)) {
    links.Put(column, name);
  } else {
    render.out.Write(name);
  }
  render.out.Put("</th>\r\n");
}

}  // namespace

void PutGridHeader(state::Render& render, std::span<const GridColumn> columns, std::int32_t bookmark) {
  render.out.Put("<tr").PutIf(render.settings.UseCSS, R"( class="DRLOTableTR")").Put(">\r\n");
  if (render.settings.GridDisplayIndex) PutIndexCell(render);
  const SortLinks links(render, bookmark);
  for (const GridColumn& column : columns) PutCell(render, column, links);
  render.out.Put("</tr>\r\n");
}

}  // namespace dralo::views
