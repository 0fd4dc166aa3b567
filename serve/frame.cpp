#include "frame.h"

#include "table_plan.h"
#include "text.h"

namespace serve {
namespace {

/// A longer list of tables is only on the start page.
constexpr std::size_t kMostTablesBeside = 100;

void PutTable(std::string& out, const Table& table, bool is_current) {
  out.append("<li><a href=\"").append(Escaped(AddressOf(table.name))).append("\"");
  out.append(is_current ? " aria-current=\"page\">" : ">");
  out.append(Escaped(Label(table.name))).append("</a></li>\n");
}

void PutGroup(std::string& out, const Frame& frame, bool are_views, const std::optional<TableName>& current) {
  std::string items;
  for (const Table& table : *frame.tables) {
    if (table.is_view == are_views) PutTable(items, table, table.name == current);
  }
  if (items.empty()) return;
  out.append("<h2>").append(are_views ? "Views" : "Tables").append("</h2>\n<ul>\n");
  out.append(items).append("</ul>\n");
}

std::string Navigation(const Frame& frame, const std::optional<TableName>& current) {
  std::string out = "<nav aria-label=\"Tables\">\n";
  if (frame.tables->size() <= kMostTablesBeside) {
    PutGroup(out, frame, false, current);
    PutGroup(out, frame, true, current);
  } else {
    out.append("<ul>\n<li><a href=\"/\">All ").append(std::to_string(frame.tables->size()));
    out.append(" tables</a></li>\n");
    if (current) PutTable(out, {*current}, true);
    out.append("</ul>\n");
  }
  return out + "</nav>\n";
}

constexpr std::string_view kHead = R"(<!doctype html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<link rel="icon" href="/assets/icon.svg" type="image/svg+xml">
<link rel="stylesheet" href="/assets/dralo.css">
<link rel="stylesheet" href="/assets/serve.css">
<script src="/assets/dralo.js" defer></script>
<title>)";

constexpr std::string_view kBrand = R"(</title>
</head>
<body>
<a class="skip" href="#content">Skip to the content</a>
<header><a class="brand" href="/"><img src="/assets/icon.svg" alt="" width="28" height="28"><span>)";

}  // namespace

std::string PageStart(const Frame& frame, std::string_view title, const std::optional<TableName>& current) {
  std::string out;
  out.append(kHead).append(Escaped(title)).append(" – ").append(Escaped(frame.database)).append(kBrand);
  out.append(Escaped(frame.database)).append("</span></a><span class=\"mode\">");
  out.append(frame.can_edit ? "Editable" : "Read-only").append("</span></header>\n");
  out.append(Navigation(frame, current));
  out.append("<main id=\"content\" tabindex=\"-1\">\n<h1>").append(Escaped(title)).append("</h1>\n");
  return out;
}

std::string WholePage(const Frame& frame, std::string_view title,
                      std::initializer_list<std::string_view> content,
                      const std::optional<TableName>& current) {
  std::string out = PageStart(frame, title, current);
  for (const std::string_view piece : content) out.append(piece);
  return out.append(kPageEnd);
}

std::string Label(const TableName& table) {
  if (!table.schema.empty()) return table.schema + "." + table.name;
  return table.name.find_first_not_of(' ') == std::string::npos ? "(table without a name)" : table.name;
}

std::string Message(const Frame& frame, std::string_view title, std::string_view sentence) {
  return WholePage(frame, title,
                   {"<p class=\"about\">", Escaped(sentence), "</p>\n<p><a href=\"/\">All tables</a></p>"});
}

}  // namespace serve
