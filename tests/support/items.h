#pragma once

#include <regex>
#include <string>
#include <vector>

#include "support/view_page.h"

namespace dralo::tests {

/// The numbers of the rows of ViewPage::ItemsTable() that the page shows, in their order.
inline std::vector<int> ItemsShown(const std::string& body) {
  static const std::regex cell("Item ([0-9]+)</td>");
  std::vector<int> items;
  for (std::sregex_iterator at(body.begin(), body.end(), cell), end; at != end; ++at)
    items.push_back(std::stoi((*at)[1]));
  return items;
}

/// first, first + 1, ... last.
inline std::vector<int> Range(int first, int last) {
  std::vector<int> numbers;
  for (int number = first; number <= last; ++number) numbers.push_back(number);
  return numbers;
}

/// A page with a view over `rows` items.
struct ItemsPage : ViewPage {
  explicit ItemsPage(int rows) : ViewPage(ItemsTable(rows)) {
    view.Set("sql", std::string("SELECT * FROM Items"));
  }

  std::vector<int> Shown() { return ItemsShown(Render()); }
  const settings::Settings& Settings() const { return view.GetSettings(); }
};

}  // namespace dralo::tests
