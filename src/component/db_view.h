#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "component/property.h"
#include "dralo/object.h"
#include "dralo/page_context.h"
#include "dralo/variant.h"
#include "platform/environment.h"
#include "settings/settings.h"
#include "state/outcome.h"

namespace dralo::state {
struct Render;
}

namespace dralo::component {

/// Turns a database query into an interactive part of a web page. Scripts know it as "Dralo.DbView". Made by
/// the page script, bound to the page, configured through its properties, rendered; may then be bound to
/// another page.
class DbView final : public platform::Object {
 public:
  /// `environment` must outlive the view.
  explicit DbView(platform::Environment& environment);
  ~DbView() override;

  /// Binds the view to the page; `page` must live until OnEndPage(). When the page yields no request or no
  /// response, ErrorMessage says so, and the view is not bound. On every later page the view starts afresh,
  /// but its properties keep their values: messages, row numbers and the shown record of the former page are
  /// forgotten.
  void OnStartPage(platform::PageContext& page);

  /// The same for a page that scripts make; the view keeps it until OnEndPage(). Throws platform::Error while
  /// the view writes its page.
  void OnStartPage(std::shared_ptr<platform::PageContext> page);

  /// Whether the view has read the request of its page and begun to answer it.
  bool HasAnswered() const { return has_answered_; }

  /// Gives back the connection that the ConnectionString property opened, and lets go of the page and of a
  /// supplied recordset. Commands stay and can be run on the next page.
  void OnEndPage();

  /// Reads the request, carries out a posted change, and writes the view that the request selects. Failures
  /// of the database and of rendering are reported in ErrorMessage. Does nothing when the page start has
  /// failed. Throws platform::Error when the view is not bound to a page, and lets errors of a posted
  /// change's preparation through.
  void WriteHtmlTable();

  /// Carries out a posted change before the page writes anything; WriteHtmlTable() then shows its outcome.
  /// When the view is hardened and something was changed, it redirects to the address that shows the result,
  /// and the page ends. Does nothing, and throws, where WriteHtmlTable() does.
  void ReceivePost();

  /// Connects, and renders the whole table or view of that name; the name goes into the statement as it is.
  /// Throws platform::Error when the connection cannot be opened.
  void QHtmlTable(std::string_view connection_string, std::string_view table_name);

  /// "grid", "formview", "formedit" or "formadd": the view that the request and the properties select.
  /// May be asked before and after rendering.
  std::string_view CurrentMode() const;

  /// The value at the 1-based position `index` of the record that was rendered (of a grid: its first). An
  /// empty text before rendering, for other positions, and while a record is being added.
  platform::Variant CurrentRecord(std::int16_t index) const;

  /// Shows the edit field as a select list: the values of `link_field` in the table, as the texts of
  /// `display_field`, in the order of `order_by` when it is not empty; `allow_nulls` adds an empty choice. No
  /// text may contain a comma. Of several lookups of a field the first counts.
  void AddEditLookup(std::string_view field_name, std::string_view lookup_table, std::string_view link_field,
                     std::string_view display_field, std::string_view order_by, bool allow_nulls);

  /// What AddEditLookup() was given for the field, joined by ",", with "1" or "0" at the end; empty when it
  /// has no lookup. Letter case does not matter. Valid until the next AddEditLookup().
  std::string_view EditLookupAsString(std::string_view field_name) const;

  /// A property by its name in any letter case. Throws std::invalid_argument naming the property when there
  /// is none of that name, when its access does not allow it, and when the value does not fit.
  PropertyValue Get(std::string_view name) const;
  void Set(std::string_view name, const PropertyValue& value);

  /// The page that scripts have made and the view keeps; nullptr when there is none.
  const std::shared_ptr<platform::PageContext>& KeptPage() const { return kept_page_; }

  /// What the latest rendering has found.
  const state::Outcome& LatestOutcome() const { return outcome_; }

  const settings::Settings& GetSettings() const { return settings_; }
  /// Throws platform::Error while the view writes its page: handlers of changes must not change it.
  settings::Settings& MutableSettings();
  /// Has the regional settings of the view.
  platform::Environment& GetEnvironment() const {
    return settings_.locale_environment == nullptr ? environment_ : *settings_.locale_environment;
  }

 private:
  void ForgetFormerPage();
  void RunOnPage(void (*step)(state::Render& render, platform::PageContext& page));
  void RefuseWhileRendering() const;
  state::Outcome StartingOutcome();

  platform::Environment& environment_;
  platform::PageContext* page_ = nullptr;
  std::shared_ptr<platform::PageContext> kept_page_;
  bool page_start_failed_ = false;
  bool is_rendering_ = false;
  bool has_answered_ = false;
  bool has_ended_page_ = false;  ///< What the former page left can still be read.
  settings::Settings settings_;
  state::Outcome outcome_;  ///< Of the latest rendering.
};

}  // namespace dralo::component
