#include "record/rendered_page.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "record/attempt.h"
#include "record/chance.h"
#include "record/outcome.h"
#include "record/page_script.h"
#include "record/plan.h"
#include "record/visit.h"

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

void NoteRequest(Journal& journal, const Visit& visit) {
  for (const RequestField& field : visit.query) journal.Add("query " + field.name, field.value);
  for (const RequestField& field : visit.form) journal.Add("form " + field.name, field.value);
}

/// One run of a page script: its request, its views, and what they do.
class Run {
 public:
  Run(const Stage& stage, const std::vector<Plan>& plans, Chance& chance, Journal& journal)
      : stage_(stage), plans_(plans), chance_(chance), journal_(journal) {}

  void Render() {
    const std::size_t kind = chance_.Below(100);
    while (views_.size() < plans_.size()) views_.push_back(std::make_unique<DbView>(stage_.environment));
    RenderPage(kind, true);
    if (kind < 5) RenderPage(kind, false);
  }

 private:
  /// `kind` chooses what seldom happens.
  void RenderPage(std::size_t kind, bool is_first) {
    FakePage page;
    const Visit visit = MakeVisit(plans_, chance_);
    NoteRequest(journal_, visit);
    page.query = visit.query;
    page.form = visit.form;
    if (kind % 20 == 6) page.script_name = "/a b/<\"'>&.php";
    Watch(page, kind);
    for (std::size_t i = 0; i < views_.size(); ++i) RenderView(i, page, kind, is_first);
    journal_.Add("page", page.body);
    for (const std::string& call : page.calls) {
      if (call != "write") journal_.Add("call", call);
    }
    for (const auto& view : views_) {
      NoteOutcome(journal_, *view);
      view->OnEndPage();
      NoteOutcome(journal_, *view);
    }
  }

  void Watch(FakePage& page, std::size_t kind) {
    page.on_clear = [&] { journal_.Add("cleared", page.body); };
    page.on_end = [kind] {
      if (kind % 3 != 0) throw PageEnded();
    };
    if (kind != 10) return;
    page.on_write = [writes = 0]() mutable {
      if (++writes == 2) throw std::runtime_error("The visitor has gone");
    };
  }

  void RenderView(std::size_t number, FakePage& page, std::size_t kind, bool is_first) {
    DbView& view = *views_[number];
    PageScript script(view, plans_[number], stage_, chance_, journal_);
    if (kind == 11) Attempt(journal_, "write without a page", [&] { view.WriteHtmlTable(); });
    view.OnStartPage(page);
    if (is_first) {
      script.SetUp();
    } else {
      script.Connect();
    }
    journal_.Add("mode before", view.CurrentMode());
    Write(view, plans_[number], kind);
    if (kind >= 12 && kind < 15) Write(view, plans_[number], kind);
  }

  void Write(DbView& view, const Plan& plan, std::size_t kind) {
    Attempt(journal_, "write", [&] {
      if (kind == 15 || kind == 16) {
        view.QHtmlTable(stage_.connection_string, kind == 15 ? plan.table->name : "Nobody");
      } else {
        view.WriteHtmlTable();
      }
    });
  }

  const Stage& stage_;
  const std::vector<Plan>& plans_;
  Chance& chance_;
  Journal& journal_;
  std::vector<std::unique_ptr<DbView>> views_;
};

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
  Run(stage, plans, chance, journal).Render();
  stage.shared->OnEndPage();
  journal.Add("written tables", shop_.TakeChanges());
  const bool is_portable = (locale == 0 || locale == 3) && !HasTextOfLibrary(journal.Text());
  return {journal.Text(), is_portable};
}

}  // namespace dralo::record
