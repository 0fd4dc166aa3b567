#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "unit/editing/shared_form.h"

namespace dralo::tests {

/// What stands in the fields of a form, by their names; a tick is "on".
using Texts = std::map<std::string, std::string>;

/// What the form shows for the stored record.
using StoredTexts = std::function<Texts()>;

inline const std::vector<std::string> kModelFields = {"Name", "City", "Stock", "Active"};

inline Texts TextsOf(const Form& form) {
  Texts texts;
  for (const std::string& field : kModelFields) {
    const auto input = std::ranges::find(form, "Morvu1_Form_" + field, &platform::RequestField::name);
    texts[field] = input == form.end() ? "" : input->value;
  }
  return texts;
}

/// Somebody with a form, and what is known of it without looking at digests.
class ModelVisitor {
 public:
  explicit ModelVisitor(unsigned seed) : random_(seed) {}

  /// Opens the form when there is none, else types something into it and saves.
  void Step(SharedForm& shop, const StoredTexts& stored) {
    if (page_.empty()) {
      page_ = shop.Open();
      typed_ = shown_ = TextsOf(PostedByBrowser(page_));
    } else {
      Type();
      Save(shop, stored);
    }
  }

 private:
  std::string AnyText(const std::string& field) {
    static const std::map<std::string, std::vector<std::string>> kPossibleTexts = {
        {"Name", {"Anna", "Eve", "Zoe"}},
        {"City", {"", "Oslo", "Rome"}},
        {"Stock", {"", "3", "4"}},
        {"Active", {"", "on"}}};
    const auto& texts = kPossibleTexts.at(field);
    return texts[random_() % texts.size()];
  }

  void Type() {
    for (const std::string& field : kModelFields) {
      if (random_() % 4 != 0) typed_[field] = AnyText(field);
    }
  }

  void Save(SharedForm& shop, const StoredTexts& stored) {
    const Texts before = stored();
    std::vector<std::string> conflicts;
    Texts expected = before;
    for (const std::string& field : kModelFields) {
      const bool is_touched = typed_[field] != shown_[field];
      if (!is_touched || typed_[field] == before.at(field)) continue;
      if (before.at(field) != shown_[field]) conflicts.push_back(field);
      expected[field] = typed_[field];
    }
    Form form = PostedByBrowser(page_, "Morvu1FormUpdate");
    for (const std::string& field : kModelFields) TypeInto(form, field, typed_[field]);
    const std::string page = shop.Page(form);
    EXPECT_EQ(shop.error, "");
    EXPECT_EQ(stored(), conflicts.empty() ? expected : before);
    for (const std::string& field : kModelFields) {
      const bool is_conflict = std::ranges::count(conflicts, field) > 0;
      EXPECT_EQ(NewerValue(page, field), is_conflict ? AsNote(field, before.at(field)) : "none") << field;
      if (is_conflict) shown_[field] = before.at(field);
    }
    if (!conflicts.empty()) {
      EXPECT_EQ(TextsOf(PostedByBrowser(page)), typed_) << "what was typed is lost";
    }
    page_ = conflicts.empty() ? "" : page;
    ++(conflicts.empty() ? saves : refusals);
  }

  static std::string AsNote(const std::string& field, const std::string& text) {
    return field != "Active" ? text : text == "on" ? "True" : "False";
  }

  /// The newer value that stands beside the field; "none" without one.
  static std::string NewerValue(const std::string& page, const std::string& field) {
    const std::size_t control = page.find("name=\"Morvu1_Form_" + field + "\"");
    if (control == page.npos) return "none";  // The record is shown.
    const std::string_view cell =
        std::string_view(page).substr(control, page.find("</td>", control) - control);
    constexpr std::string_view kStart = "<span class=\"DraloNewerValue\">";
    const std::size_t start = cell.find(kStart);
    if (start == cell.npos) return "none";
    const std::string_view rest = cell.substr(start + kStart.size());
    return std::string(rest.substr(0, rest.find("</span>")));
  }

  std::mt19937 random_;
  std::string page_;
  Texts shown_;  ///< The value of the database that the visitor saw last, per field.
  Texts typed_;

 public:
  int saves = 0;
  int refusals = 0;
};

/// Every order in which the visitors can take their steps.
inline void ForEachInterleaving(std::vector<int> left, std::vector<int> order, const auto& visit) {
  bool is_complete = true;
  for (std::size_t visitor = 0; visitor < left.size(); ++visitor) {
    if (left[visitor] == 0) continue;
    is_complete = false;
    --left[visitor];
    order.push_back(static_cast<int>(visitor));
    ForEachInterleaving(left, order, visit);
    order.pop_back();
    ++left[visitor];
  }
  if (is_complete) visit(order);
}

}  // namespace dralo::tests
