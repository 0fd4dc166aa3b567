#include "record/session.h"

#include <array>
#include <stdexcept>
#include <utility>

#include "record/attempt.h"
#include "record/field_texts.h"
#include "record/outcome.h"
#include "support/browser_form.h"

namespace dralo::record {
namespace {

void NoteRequest(Journal& journal, const Visit& visit) {
  for (const RequestField& field : visit.query) journal.Add("query " + field.name, field.value);
  for (const RequestField& field : visit.form) journal.Add("form " + field.name, field.value);
}

/// Every byte as "%XX", as a browser may write it.
std::string UrlEncoded(const std::vector<RequestField>& fields) {
  std::string text;
  const auto append = [&](std::string_view part) {
    for (const char c : part) {
      const auto byte = static_cast<unsigned char>(c);
      text.append({'%', "0123456789ABCDEF"[byte / 16], "0123456789ABCDEF"[byte % 16]});
    }
  };
  for (const auto& [name, value] : fields) {
    append(name);
    text += '=';
    append(value);
    text += '&';
  }
  return text;
}

}  // namespace

void Session::Run() {
  rarity_ = chance_.Below(100);
  if (IsJourney() && chance_.Percent(45)) return EditAndPost();
  RenderTwoPages();
}

bool Session::IsJourney() const {
  return plans_.size() == 1 && (plans_[0].wish == Wish::kSave || plans_[0].wish == Wish::kDelete);
}

/// As somebody does who opens a form, changes little of it or nothing, and presses a button.
void Session::EditAndPost() {
  const Plan& plan = plans_[0];
  const std::string prefix = "Morvu" + plan.tag;
  Visit opening;
  opening.query = {{prefix + "FormDisplay", "formOneRec"},
                   {prefix + "PK", std::string(chance_.Pick(plan.table->key_texts))},
                   {prefix + "FormEdit", "1"}};
  const Chance before = chance_;
  const std::string page = RenderPage(NewViews(), opening, true);
  chance_ = before;  // The same page script again.
  Visit posting;
  Attempt(journal_, "post", [&] { posting.form = Posted(page); });
  RenderPage(NewViews(), posting, true);
}

std::vector<RequestField> Session::Posted(const std::string& page) {
  const Plan& plan = plans_[0];
  const std::string prefix = "Morvu" + plan.tag;
  Chance changes = chance_;
  const std::size_t percent = changes.Pick(std::array<std::size_t, 4>{0, 5, 20, 60});
  std::vector<RequestField> fields =
      tests::PostedByBrowser(page, prefix + (plan.wish == Wish::kDelete ? "FormDelete" : "FormUpdate"));
  for (RequestField& field : fields) {
    for (const ShopField& known : plan.table->fields) {
      if (field.name != prefix + "_Form_" + std::string(known.name) || !changes.Percent(percent)) continue;
      field.value = FieldText(known.kind, changes, plan.is_careful ? 0 : 20);
    }
  }
  return fields;
}

void Session::RenderTwoPages() {
  const Views views = NewViews();
  RenderPage(views, MakeVisit(plans_, chance_), true);
  if (rarity_ < 5) RenderPage(views, MakeVisit(plans_, chance_), false);
  if (rarity_ >= 17 && rarity_ < 20) RenderHostPage(MakeVisit(plans_, chance_));
}

Session::Views Session::NewViews() const {
  Views views;
  while (views.size() < plans_.size()) views.push_back(std::make_unique<DbView>(stage_.environment));
  return views;
}

/// Returns what was written.
std::string Session::RenderPage(const Views& views, const Visit& visit, bool is_set_up) {
  FakePage page;
  NoteRequest(journal_, visit);
  page.query = visit.query;
  page.form = visit.form;
  if (rarity_ % 20 == 6) page.script_name = "/a b/<\"'>&.php";
  Watch(page);
  for (std::size_t i = 0; i < views.size(); ++i) RenderView(*views[i], plans_[i], page, is_set_up);
  journal_.Add("page", page.body);
  for (const std::string& call : page.calls) {
    if (call != "write") journal_.Add("call", call);
  }
  EndPage(views);
  return page.body;
}

/// The same with the page that C++ programs have.
void Session::RenderHostPage(const Visit& visit) {
  const Views views = NewViews();
  HostPage page("/host", UrlEncoded(visit.query), UrlEncoded(visit.form));
  NoteRequest(journal_, visit);
  try {
    for (std::size_t i = 0; i < views.size(); ++i) RenderView(*views[i], plans_[i], page, true);
  } catch (const HostPage::Ended&) {
    journal_.Add("host page", "ended");
  }
  journal_.Add("host page", page.Body());
  journal_.Add("type", page.ContentType());
  for (const auto& [name, value] : page.Headers()) journal_.Add(name, value);
  EndPage(views);
}

void Session::EndPage(const Views& views) {
  for (const auto& view : views) {
    NoteOutcome(journal_, *view);
    view->OnEndPage();
    NoteOutcome(journal_, *view);
  }
}

void Session::Watch(FakePage& page) {
  page.on_clear = [&] { journal_.Add("cleared", page.body); };
  page.on_end = [rarity = rarity_] {
    if (rarity % 3 != 0) throw PageEnded();
  };
  if (rarity_ != 10) return;
  page.on_write = [writes = 0]() mutable {
    if (++writes == 2) throw std::runtime_error("The visitor has gone");
  };
}

void Session::RenderView(DbView& view, const Plan& plan, PageContext& page, bool is_set_up) {
  PageScript script(view, plan, stage_, chance_, journal_);
  if (rarity_ == 11) Attempt(journal_, "write without a page", [&] { view.WriteHtmlTable(); });
  view.OnStartPage(page);
  if (is_set_up) {
    script.SetUp();
  } else {
    script.Connect();
  }
  journal_.Add("mode before", view.CurrentMode());
  Write(view, plan);
  if (rarity_ >= 12 && rarity_ < 15) Write(view, plan);
}

void Session::Write(DbView& view, const Plan& plan) {
  Attempt(journal_, "write", [&] {
    if (rarity_ == 15 || rarity_ == 16) {
      view.QHtmlTable(stage_.connection_string, rarity_ == 15 ? plan.table->name : "Nobody");
    } else {
      view.WriteHtmlTable();
    }
  });
}

}  // namespace dralo::record
