#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace dralo::tests {

/// What a visitor must see of a grid over a table (ID, City, Amount) after any clicks, told in the plainest
/// way: pages are walked, rows are sorted anew.
class GridModel {
 public:
  struct Row {
    int id = 0;
    std::string city;
    std::optional<int> amount;  ///< Nothing for Null, which comes before all numbers.
  };

  struct Rules {
    int page_size = 20;
    int limit = 1'000'000;
    bool is_counted = true;
  };

  /// `rows` in the order of their ids.
  GridModel(std::vector<Row> rows, const Rules& rules)
      : by_id_(rows), sorted_(std::move(rows)), rules_(rules) {
    ForgetCut();
  }

  void Next() {
    ForgetCut();
    first_ += rules_.page_size;
  }
  void Previous() {
    ForgetCut();
    first_ = std::max(first_ - rules_.page_size, 1);
  }
  void First() {
    ForgetCut();
    first_ = 1;
  }
  void Last() {
    first_ = FirstOfLastPage();
    shown_count_ = Reachable();
  }
  void Resize(int page_size) {
    ForgetCut();
    rules_.page_size = page_size;
  }
  /// Column 1, 2 or 3; a second time in a row turns the order round. The page stays at its record number.
  void Sort(int column) {
    ForgetCut();
    descends_ = column == sorted_by_ && !descends_;
    sorted_by_ = column;
    sorted_ = by_id_;
    std::ranges::stable_sort(sorted_, [this](const Row& left, const Row& right) {
      return descends_ ? IsBefore(right, left) : IsBefore(left, right);
    });
  }

  int PageSize() const { return rules_.page_size; }
  int SortedBy() const { return sorted_by_; }  ///< 0 before the first click on a column.
  bool Descends() const { return descends_; }

  /// The rows of the page.
  std::vector<Row> Page() const {
    std::vector<Row> page;
    for (int number = first_; number <= Reachable() && std::ssize(page) < rules_.page_size; ++number)
      page.push_back(sorted_[static_cast<std::size_t>(number) - 1]);
    return page;
  }
  int FromRow() const { return Page().empty() ? 0 : first_; }
  int ToRow() const { return Page().empty() ? 0 : first_ + static_cast<int>(Page().size()) - 1; }

  bool GoesBack() const { return first_ > 1; }
  bool GoesOn() const { return ToRow() < Reachable(); }
  bool GoesToLast() const { return rules_.is_counted && first_ < FirstOfLastPage(); }

  /// "Records (1..20) of 45&nbsp;&nbsp;Page 1 of 3"
  std::string Counter() const {
    const std::string from = std::to_string(FromRow());
    const std::string to = std::to_string(ToRow());
    std::string text = from == to ? "Record " + from + " " : "Records (" + from + ".." + to + ") ";
    if (rules_.is_counted) {
      text += "of " + std::to_string(shown_count_);
    } else if (from == to) {
      text.pop_back();
    }
    int page = 1;
    for (int number = rules_.page_size + 1; number <= first_; number += rules_.page_size) ++page;
    text += "&nbsp;&nbsp;Page " + std::to_string(page);
    int pages = 0;
    for (int number = 1; number <= shown_count_; number += rules_.page_size) ++pages;
    if (rules_.is_counted) text += " of " + std::to_string(pages);
    return text;
  }

 private:
  int Reachable() const { return std::min(static_cast<int>(by_id_.size()), rules_.limit); }

  int FirstOfLastPage() const {
    int first = 1;
    while (first + rules_.page_size <= Reachable()) first += rules_.page_size;
    return first;
  }

  /// The last-page button alone shows the count up to the limit.
  void ForgetCut() { shown_count_ = static_cast<int>(by_id_.size()); }

  bool IsBefore(const Row& left, const Row& right) const {
    if (sorted_by_ == 1) return left.id < right.id;
    return sorted_by_ == 2 ? left.city < right.city : left.amount < right.amount;
  }

  std::vector<Row> by_id_;
  std::vector<Row> sorted_;
  Rules rules_;
  int first_ = 1;
  int shown_count_ = 0;
  int sorted_by_ = 0;
  bool descends_ = false;
};

}  // namespace dralo::tests
