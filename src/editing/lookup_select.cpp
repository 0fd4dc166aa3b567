#include "editing/lookup_select.h"

#include <cstdint>
#include <exception>
#include <string>

#include "cells/standard_text.h"
#include "dralo/error.h"
#include "dralo/recordset.h"
#include "editing/control_text.h"
#include "settings/open_connection.h"
#include "state/value_text.h"
#include "text/list.h"

namespace dralo::editing {
namespace {

using html::Verbatim;
using platform::Recordset;

constexpr std::int64_t kMostOptions = 1000;

/// What PutOptions() has written.
struct Options {
  std::int64_t count = 0;
  bool has_selected = false;
};

}  // namespace

std::string LookupStatement(std::string_view definition) {
  std::string sql("SELECT ");
  sql.append(text::NthItem(definition, 3)).append(",").append(text::NthItem(definition, 4));
  sql.append(" FROM ").append(text::NthItem(definition, 2));
  const std::string_view order_by = text::NthItem(definition, 5);
  if (!order_by.empty()) sql.append(" ORDER BY ").append(order_by);
  return sql;
}

bool AllowsNoChoice(std::string_view definition) { return text::NthItem(definition, 6) == "1"; }

namespace {

/// Writes an option for every record; the one whose link text is `value` is selected.
Options PutOptions(html::HtmlWriter& out, const state::Render& render, Recordset& recordset,
                   std::string_view value) {
  const auto fields = recordset.Fields();
  if (fields.size() < 2) throw platform::Error("A lookup needs a link field and a display field");
  std::string scratch;
  Options options;
  for (; !recordset.Eof(); recordset.MoveNext()) {
    ++options.count;
    const std::string_view link = ControlText(render, *fields[0], scratch);
    options.has_selected = options.has_selected || link == value;
    out.Put("<option ").PutIf(link == value, " selected ").Put(R"( value=")");
    state::PutInAttribute(out, render, link);
    out.Put("\">");
    state::PutInText(out, render, cells::ReadRawText(render.Regional(), *fields[1], scratch));
    out.Put("\r\n");
  }
  return options;
}

/// Without this option a browser would choose another value in a form that nobody touches.
void PutStoredOption(html::HtmlWriter& out, const state::Render& render, std::string_view value) {
  out.Put(R"(<option selected value=")");
  state::PutInAttribute(out, render, value);
  out.Put(R"(">)");
  state::PutInText(out, render, value);
  out.Put("\r\n");
}

}  // namespace

bool PutLookupSelect(html::HtmlWriter& out, state::Render& render, html::Joined input_name,
                     std::string_view attribute, std::string_view definition, std::string_view value) {
  const std::string sql = LookupStatement(definition);
  const bool is_hardened = render.settings.Hardened;
  const bool allows_none = AllowsNoChoice(definition);
  // Collected first: the statement may fail at any row, and a list that lacks the stored value would lose it
  // at the next save.
  html::HtmlWriter list;
  try {
    const auto recordset = platform::Create<Recordset>(render.environment, "ADODB.Recordset");
    if (is_hardened) recordset->SetMaxRecords(kMostOptions + 1);
    recordset->Open(sql, settings::OpenConnection(render.settings));
    list.Put("<select {}id=\"{}\" name=\"{}\">\r\n", Verbatim{attribute}, input_name, input_name);
    list.PutIf(allows_none, "<option value=''>\r\n");
    const Options options = PutOptions(list, render, *recordset, value);
    if (is_hardened && options.count > kMostOptions) return false;
    const bool is_listed = options.has_selected || (value.empty() && allows_none);
    if (is_hardened && !is_listed && render.view.mode != state::Mode::kFormAdd)
      PutStoredOption(list, render, value);
    list.Put("</select>\r\n");
    recordset->Close();
  } catch (const std::exception& error) {
    render.Errors().AddLookupFailure(error.what(), sql);
    return false;
  }
  out.Write(Verbatim{list.Collected()});
  return true;
}

}  // namespace dralo::editing
