#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "unit/editing/shared_form.h"

namespace dralo::tests {

namespace {

using Texts = std::map<std::string, std::string>;

const std::vector<std::string> kFields = {"Name", "City", "Stock", "Active"};

/// What a form shows for the stored value; a tick is "on".
Texts Stored(const SharedForm& shop) {
  Texts texts;
  for (const std::string& field : kFields) {
    const std::string value = shop.database.Value("SELECT coalesce(" + field + ", '') FROM T WHERE ID=1");
    texts[field] = field != "Active" ? value : value == "1" ? "on" : "";
  }
  return texts;
}

Texts TextsOf(const Form& form) {
  Texts texts;
  for (const std::string& field : kFields) {
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
  void Step(SharedForm& shop) {
    if (page_.empty()) {
      page_ = shop.Open();
      typed_ = shown_ = TextsOf(PostedByBrowser(page_));
    } else {
      Type();
      Save(shop);
    }
  }

 private:
  std::string AnyText(const std::string& field) {
    static const std::map<std::string, std::vector<std::string>> kTexts = {{"Name", {"Anna", "Eve", "Zoe"}},
                                                                           {"City", {"", "Oslo", "Rome"}},
                                                                           {"Stock", {"", "3", "4"}},
                                                                           {"Active", {"", "on"}}};
    const auto& texts = kTexts.at(field);
    return texts[random_() % texts.size()];
  }

  void Type() {
    for (const std::string& field : kFields) {
      if (random_() % 4 != 0) typed_[field] = AnyText(field);
    }
  }

  void Save(SharedForm& shop) {
    const Texts before = Stored(shop);
    std::vector<std::string> conflicts;
    Texts expected = before;
    for (const std::string& field : kFields) {
      const bool is_touched = typed_[field] != shown_[field];
      if (!is_touched || typed_[field] == before.at(field)) continue;
      if (before.at(field) != shown_[field]) conflicts.push_back(field);
      expected[field] = typed_[field];
    }
    Form form = PostedByBrowser(page_, "Morvu1FormUpdate");
    for (const std::string& field : kFields) TypeInto(form, field, typed_[field]);
    const std::string page = shop.Page(form);
    EXPECT_EQ(shop.error, "");
    EXPECT_EQ(Stored(shop), conflicts.empty() ? expected : before);
    for (const std::string& field : kFields) {
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

class ConflictModel : public testing::TestWithParam<unsigned> {};

/// Every order in which the visitors can take their steps.
void ForEachInterleaving(std::vector<int> left, std::vector<int> order, const auto& visit) {
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

TEST_P(ConflictModel, NoValueIsOverwrittenThatItsWriterHasNotSeen) {
  unsigned seed = GetParam();
  int saves = 0;
  int refusals = 0;
  const auto run = [&](const std::vector<int>& order) {
    SharedForm shop;
    std::vector<ModelVisitor> visitors;
    for (int visitor = 0; visitor < 3; ++visitor) visitors.emplace_back(++seed);
    std::string trace;
    for (const int visitor : order) {
      trace += std::to_string(visitor);
      SCOPED_TRACE("visitors " + trace + " before seed " + std::to_string(seed));
      visitors[static_cast<std::size_t>(visitor)].Step(shop);
    }
    for (const ModelVisitor& visitor : visitors) {
      saves += visitor.saves;
      refusals += visitor.refusals;
    }
  };
  for (const std::vector<int>& steps : {std::vector{3, 3}, std::vector{2, 4}, std::vector{2, 2, 2}}) {
    ForEachInterleaving(steps, {}, run);
  }
  EXPECT_GT(saves, 50);
  EXPECT_GT(refusals, 20) << "too few conflicts to prove something";
}

INSTANTIATE_TEST_SUITE_P(Seeds, ConflictModel, testing::Values(1, 10'000));

}  // namespace

}  // namespace dralo::tests
