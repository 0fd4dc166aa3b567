#include "record/plan.h"

#include <array>

namespace dralo::record {
namespace {

using enum Wish;

/// As often as they shall be wished.
constexpr std::array kWishes = {
    kGrid,     kGrid,     kGrid,     kGrid,   kGrid,   kGrid,   kGrid,   kFormView, kFormView, kFormEdit,
    kFormEdit, kFormEdit, kFormEdit, kSave,   kSave,   kSave,   kSave,   kSave,     kSave,     kSave,
    kFormAdd,  kFormAdd,  kInsert,   kInsert, kDelete, kDelete, kDelete, kExport,   kExport,   kGrid,
};

/// A record to change is needed more often than a table without any.
constexpr std::array<std::size_t, 16> kTableNumbers = {0, 0, 0, 0, 0, 0, 1, 2, 2, 3, 4, 5, 6, 7, 8, 9};

constexpr std::array kViewTags = {std::string_view("1"), std::string_view("1"), std::string_view("1"),
                                  std::string_view("2"), std::string_view("a"), std::string_view("B")};

}  // namespace

std::vector<Plan> MakePlans(Chance& chance) {
  const std::size_t kind_of_page = chance.Below(20);
  const std::size_t count = kind_of_page == 0 ? 3 : kind_of_page < 4 ? 2 : 1;
  const bool is_careful = chance.Percent(65);
  std::vector<Plan> plans;
  while (plans.size() < count) {
    Plan plan;
    plan.is_careful = is_careful;
    plan.wish = chance.Pick(kWishes);
    plan.table = &Tables()[chance.Pick(kTableNumbers)];
    plan.tag = chance.Pick(kViewTags);
    plans.push_back(std::move(plan));
  }
  return plans;
}

}  // namespace dralo::record
