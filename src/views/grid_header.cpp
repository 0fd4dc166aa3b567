#include "views/grid_header.h"

#include <string>
#include <string_view>

#include "cells/column_settings.h"
#include "shell/db_connection.h"
#include "shell/request_keys.h"
#include "util/field_type.h"
#include "util/letter_case.h"
#include "util/list.h"
#include "views/field_lists.h"
#include "views/links.h"

namespace dralo::views {
namespace {

namespace key = shell::key;
using shell::Settings;
using util::Verbatim;

/// Tells the columns whose names are sort links.
class SortLinks {
 public:
  explicit SortLinks(const Settings& settings)
      : settings_(settings),
        any_(!settings.has_stored_procedure && !util::ContainsWord(settings.sql, "ORDER BY")),
        long_columns_(settings.DrConnection &&
                      settings.DrConnection->Engine() == shell::DatabaseEngine::kSqla) {}

  bool Has(const GridColumn& column) const {
    return any_ && (long_columns_ || !IsLong(column.field->Type())) &&
           !IsGridColNoSort(settings_, column.field->Name(), column.number);
  }

 private:
  static bool IsLong(platform::TypeCode type) {
    return util::IsMemoFieldType(type) || type == platform::TypeCode::kLongVarBinary;
  }

  const Settings& settings_;
  bool any_;
  bool long_columns_;  ///< Only one engine sorts by them; a grid without a connection is not on it.
};

void PutArrow(const shell::Render& render) {
  const Verbatim folder{render.settings.ImageDir};
  if (render.settings.OrderByDesc) {
    render.out.Put(R"(&nbsp;<img border="0" src="{}orderdesc.gif">)", folder);
  } else {
    render.out.Put(R"(&nbsp;<img border="0" src="{}orderasc.gif">)", folder);
  }
}

/// A click on the sorted column turns its order round; on another column it sorts ascending.
void PutSortLink(const shell::Render& render, const GridColumn& column, Verbatim name,
                 std::int32_t bookmark) {
  const Settings& settings = render.settings;
  const bool is_sorted = settings.OrderByFields == std::to_string(column.number);
  render.out.Put("<a")
      .PutIf(settings.UseCSS, R"( class="DRLOTableTH")")
      .Put(R"( href="{}?)", Verbatim{render.script_name});
  PutStateQuery(render.out, render, render.current_record);
  render.out
      .Put("&{}={}&{}={}", render.keys(key::kOrderByFields), column.number, render.keys(key::kBookmark),
           bookmark)
      .PutIf(is_sorted && !settings.OrderByDesc, "&{}=True", render.keys(key::kOrderByDesc))
      .Put(R"("><nobr>{})", name);
  if (is_sorted) PutArrow(render);
  render.out.Put("</nobr></a>");
}

/// The start of a header cell with the column's own attributes.
void PutCellStart(const shell::Render& render, int column) {
  const auto attributes = cells::GridColHeadAttributes(render.settings, static_cast<std::int16_t>(column));
  render.out.Put("<th ").PutIf(!attributes.empty(), "{} ", Verbatim{attributes});
}

void PutTHTag(const shell::Render& render) {
  const std::string& tag = render.settings.THTag;
  render.out.PutIf(!tag.empty(), " {} ", Verbatim{tag});
}

void PutIndexCell(const shell::Render& render) {
  PutCellStart(render, 0);
  if (render.settings.UseCSS) {
    render.out.Put(R"(class="DRLOTableTH")");
  } else {
    PutTHTag(render);
  }
  render.out.Put(">#</th>\r\n");
}

void PutCell(const shell::Render& render, const GridColumn& column, bool has_sort_link,
             std::int32_t bookmark) {
  const Settings& settings = render.settings;
  const std::string_view width = util::NthItem(settings.GridCellWidths, column.number);
  const Verbatim name{GridDisplayName(settings, column.field->Name(), column.number)};

  PutCellStart(render, column.number);
  PutTHTag(render);
  render.out.Put(R"(align="{}")", Verbatim{column.is_numeric ? "right" : "left"})
      .PutIf(settings.UseCSS, R"( class="DRLOTableTH")")
      .PutIf(!width.empty(), R"( width="{}")", Verbatim{width})
      .Put(">");
  if (has_sort_link) {
    PutSortLink(render, column, name, bookmark);
  } else {
    render.out.Write(name);
  }
  render.out.Put("</th>\r\n");
}

}  // namespace

void PutGridHeader(const shell::Render& render, std::span<const GridColumn> columns, std::int32_t bookmark) {
  render.out.Put("<tr").PutIf(render.settings.UseCSS, R"( class="DRLOTableTR")").Put(">\r\n");
  if (render.settings.GridDisplayIndex) PutIndexCell(render);
  const SortLinks links(render.settings);
  for (const GridColumn& column : columns) PutCell(render, column, links.Has(column), bookmark);
  render.out.Put("</tr>\r\n");
}

}  // namespace dralo::views
