#include "start_page.h"

#include "frame.h"
#include "text.h"

namespace serve {
namespace {

/// With commas between groups of three digits.
std::string Grouped(std::int64_t number) {
  std::string text = std::to_string(number);
  for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, ",");
  return text;
}

std::string Told(const CountedTable& counted) {
  if (counted.table.is_view) return "view";
  if (!counted.count) return "table";
  const std::string records = Grouped(counted.count->records);
  if (counted.count->has_more) return "more than " + records + " records";
  if (counted.count->records == 0) return "no records";
  return records + (counted.count->records == 1 ? " record" : " records");
}

}  // namespace

std::string StartPage(const std::vector<CountedTable>& tables) {
  if (tables.empty()) return "<p class=\"about\">This database has no tables yet.</p>";
  std::string out = "<ul class=\"cards\">\n";
  for (const CountedTable& counted : tables) {
    out.append("<li><a href=\"").append(Escaped(AddressOf(counted.table.name))).append("\"><strong>");
    out.append(Escaped(Label(counted.table.name))).append("</strong><span>");
    out.append(Told(counted)).append("</span></a></li>\n");
  }
  return out + "</ul>";
}

}  // namespace serve
