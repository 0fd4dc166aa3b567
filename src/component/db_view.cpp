#include "component/db_view.h"

#include <utility>

#include "component/named_property.h"
#include "driver/render_driver.h"
#include "settings/own_errors.h"
#include "settings/setters.h"
#include "state/current_mode.h"
#include "state/offered_keys.h"
#include "state/request_keys.h"

namespace dralo::component {
namespace {

template <class Action>
class Finally {
 public:
  explicit Finally(Action action) : action_(std::move(action)) {}
  ~Finally() { action_(); }
  Finally(const Finally&) = delete;
  Finally& operator=(const Finally&) = delete;

 private:
  Action action_;
};

}  // namespace

DbView::DbView(platform::Environment& environment) : environment_(environment) {
  settings_.Hardened = environment.GetSite().hardened;
}

DbView::~DbView() = default;

void DbView::OnStartPage(platform::PageContext& page) {
  page_ = nullptr;
  page_start_failed_ = true;
  if (has_ended_page_) ForgetFormerPage();
  settings::Guarded(settings::OwnErrors(settings_), "OnStartPage", [&] {
    // Without a request, or a response to write to, there is no page.
    static_cast<void>(page.GetRequest());
    static_cast<void>(page.GetResponse());
    page_ = &page;
    page_start_failed_ = false;
  });
}

void DbView::OnStartPage(std::shared_ptr<platform::PageContext> page) {
  RefuseWhileRendering();
  OnStartPage(*page);
  kept_page_.swap(page);
}

void DbView::OnEndPage() {
  if (settings_.owns_connection) settings_.DrConnection.reset();
  // The recordset may keep a statement of the database open.
  settings::SetAdoRecordset(settings_, nullptr);
  page_ = nullptr;
  page_start_failed_ = false;
  has_answered_ = false;
  has_ended_page_ = true;
  // Last: the script's own page objects may end with the page.
  const auto page = std::move(kept_page_);
}

void DbView::ForgetFormerPage() {
  has_ended_page_ = false;
  settings_.ErrorMessage.clear();
  settings_.ErrorDetail.clear();
  settings_.FromRow = 0;
  settings_.ToRow = 0;
  outcome_ = {};
}

void DbView::WriteHtmlTable() { RunOnPage(driver::WriteHtmlTable); }

void DbView::ReceivePost() { RunOnPage(driver::ReceivePost); }

void DbView::RunOnPage(void (*step)(state::Render& render, platform::PageContext& page)) {
  RefuseWhileRendering();
  if (page_start_failed_) return;  // ErrorMessage says why; the page goes on.
  if (page_ == nullptr) throw platform::Error("The view is not bound to a page");
  has_answered_ = true;
  if (page_->HasEnded()) return;
  const platform::Request& request = page_->GetRequest();
  const state::RequestKeys keys = state::OfferedKeys(request, settings_, GetEnvironment().GetSite());
  html::HtmlWriter out(page_->GetResponse());
  state::Render render{.settings = settings_,
                       .environment = GetEnvironment(),
                       .keys = keys,
                       .out = out,
                       .script_name = request.ServerVariable("SCRIPT_NAME"),
                       .outcome = StartingOutcome()};
  is_rendering_ = true;
  // Also when a host ends the page in the middle of the rendering.
  const Finally commit([&] {
    is_rendering_ = false;
    state::Commit(render, settings_);
    outcome_ = std::move(render.outcome);
  });
  step(render, *page_);
}

state::Outcome DbView::StartingOutcome() {
  return {.record_count = settings_.RecordCount,
          .from_row = settings_.FromRow,
          .to_row = settings_.ToRow,
          .status_message = outcome_.status_message,
          .reported_change = outcome_.reported_change,
          .record = std::move(outcome_.record)};
}

void DbView::QHtmlTable(std::string_view connection_string, std::string_view table_name) {
  settings::SetConnectionString(MutableSettings(), GetEnvironment(), std::string(connection_string));
  settings::SetSql(settings_, GetEnvironment(), "SELECT * FROM " + std::string(table_name));
  WriteHtmlTable();
}

std::string_view DbView::CurrentMode() const {
  if (page_ == nullptr)
    return state::ModeName(state::CurrentMode(settings_, nullptr, GetEnvironment().Regional(), false));
  const state::RequestKeys keys =
      state::OfferedKeys(page_->GetRequest(), settings_, GetEnvironment().GetSite());
  return state::ModeName(
      state::CurrentMode(settings_, &keys, GetEnvironment().Regional(), outcome_.has_failed_to_save));
}

platform::Variant DbView::CurrentRecord(std::int16_t index) const {
  const bool adding =
      page_ != nullptr && state::OfferedKeys(page_->GetRequest(), settings_, GetEnvironment().GetSite())
                              .Has(state::key::kFormAdd);
  if (adding || index < 1 || static_cast<std::size_t>(index) > outcome_.record.size()) return std::string();
  return outcome_.record[static_cast<std::size_t>(index) - 1];
}

void DbView::AddEditLookup(std::string_view field_name, std::string_view lookup_table,
                           std::string_view link_field, std::string_view display_field,
                           std::string_view order_by, bool allow_nulls) {
  RefuseWhileRendering();
  try {
    settings_.lookups.Add({.field_name = field_name,
                           .table = lookup_table,
                           .link_field = link_field,
                           .display_field = display_field,
                           .order_by = order_by,
                           .allow_nulls = allow_nulls});
  } catch (const std::exception& error) {
    const std::string bound = std::to_string(settings_.lookups.UpperBound());
    settings::OwnErrors(settings_).Add(error.what(), "AddEditLookup. currUBound=" + bound);
  }
}

settings::Settings& DbView::MutableSettings() {
  RefuseWhileRendering();
  return settings_;
}

void DbView::RefuseWhileRendering() const {
  if (is_rendering_) throw platform::Error("The view is writing its page and cannot be changed");
}

std::string_view DbView::EditLookupAsString(std::string_view field_name) const {
  return settings_.lookups.Find(field_name);
}

PropertyValue DbView::Get(std::string_view name) const {
  return GetNamed(*this, FindDbViewProperty(name), name);
}

void DbView::Set(std::string_view name, const PropertyValue& value) {
  SetNamed(*this, FindDbViewProperty(name), name, value);
}

}  // namespace dralo::component
