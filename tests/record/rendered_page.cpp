#include "record/rendered_page.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "record/chance.h"
#include "record/database_script.h"
#include "record/page_script.h"
#include "record/plan.h"
#include "record/session.h"

namespace dralo::record {
namespace {

constexpr std::array kLocales = {std::string_view("en-US"), std::string_view("de-DE"),
                                 std::string_view("nb-NO"), std::string_view("C")};

/// Parts of messages that are SQLite's or PCRE2's own, whose releases word them differently.
constexpr std::array kTextsOfLibraries = {
    std::string_view("syntax error"),
    std::string_view("no such "),
    std::string_view("constraint failed"),
    std::string_view("incomplete input"),
    std::string_view("out of range"),
    std::string_view("unrecognized token"),
    std::string_view("readonly"),
    std::string_view("mismatch"),
    std::string_view("ambiguous"),
    std::string_view("unable to"),
    std::string_view("wrong number of"),
    std::string_view("term does not match"),
    std::string_view("not an error"),
    std::string_view("malformed"),
    std::string_view("misuse"),
    std::string_view("expression is not valid"),
    std::string_view("too many"),
    std::string_view("overflow"),
};

bool HasTextOfLibrary(std::string_view text) {
  return std::ranges::any_of(kTextsOfLibraries,
                             [&](std::string_view part) { return text.find(part) != text.npos; });
}

}  // namespace

PageMaker::PageMaker() = default;

Environment& PageMaker::EnvironmentOf(std::size_t locale) {
  if (environments_[locale] == nullptr)
    environments_[locale] = std::make_unique<Environment>(kLocales[locale]);
  return *environments_[locale];
}

RenderedPage PageMaker::Make(std::uint64_t number) {
  Chance chance(number * 0x2545F4914F6CDD1DU + 20'240'229);
  Journal journal(shop_.Folder());
  const std::size_t locale = std::array<std::size_t, 8>{0, 0, 0, 0, 1, 1, 2, 3}[chance.Below(8)];
  journal.Add("locale", kLocales[locale]);
  Stage stage{EnvironmentOf(locale), shop_.ConnectionString(), nullptr};
  stage.shared = Create<DBConnection>(stage.environment, "Dralo.DBConnection");
  stage.shared->Connection()->Open(shop_.ConnectionString());
  const std::vector<Plan> plans = MakePlans(chance);
  if (chance.Percent(12)) {
    RunDatabaseScript(stage, *plans[0].table, chance, journal);
    journal.Add("tables after the script", shop_.TakeChanges());
  }
  Session(stage, plans, chance, journal).Run();
  stage.shared->OnEndPage();
  journal.Add("written tables", shop_.TakeChanges());
  const bool is_portable = (locale == 0 || locale == 3) && !HasTextOfLibrary(journal.Text());
  return {journal.Text(), is_portable};
}

}  // namespace dralo::record
