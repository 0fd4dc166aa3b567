#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "dralo/db_view_properties.h"
#include "dralo/environment.h"
#include "dralo/export.h"
#include "dralo/page_context.h"

namespace dralo {

namespace component {
class DbView;
}

/// Turns a database query into an interactive part of a web page. Made for one page: bound to it, configured
/// through its properties, rendered. It belongs to the thread of its page; views of different pages are
/// independent. Page and environment must outlive it, or OnEndPage() be called first; objects that are given
/// to properties are kept alive.
class DRALO_EXPORT DbView final : public DbViewProperties {
 public:
  /// `environment` must outlive the view.
  explicit DbView(Environment& environment);
  ~DbView() override;
  /// @{
  /// A view that was moved from can only be assigned to and destroyed.
  DbView(DbView&&) noexcept;
  DbView& operator=(DbView&&) noexcept;
  /// @}

  /// Binds the view to the page, which must live until OnEndPage(). When the page yields no request or no
  /// response, ErrorMessage says so. On every later page the view starts afresh, but its properties keep
  /// their values.
  void OnStartPage(PageContext& page);

  /// Gives back the connection that the ConnectionString property opened, and lets go of the page and of a
  /// supplied recordset.
  void OnEndPage();

  /// Reads the request, carries out a posted change, and writes the view that the request selects. Failures
  /// of the database and of rendering end up in ErrorMessage. Throws Error when the view is not bound to a
  /// page.
  void WriteHtmlTable();

  /// Carries out what the visitor has saved or deleted; called before the page writes anything. When the view
  /// is hardened and something was changed, it redirects the visitor to the address that shows the result and
  /// throws what ends the page, such as Page::Ended. WriteHtmlTable() calls it when nobody did.
  void ReceivePost();

  /// Connects, and renders the whole table or view of that name; the name goes into the statement as it is.
  /// Throws Error when the connection cannot be opened.
  void QHtmlTable(std::string_view connection_string, std::string_view table_name);

  /// Shows the edit field as a select list: the values of `link_field` in the table, as the texts of
  /// `display_field`, in the order of `order_by` when it is not empty; `allow_nulls` adds an empty choice. No
  /// text may contain a comma. Of several lookups of a field the first counts.
  void AddEditLookup(std::string_view field_name, std::string_view lookup_table, std::string_view link_field,
                     std::string_view display_field, std::string_view order_by, bool allow_nulls);

  /// What AddEditLookup() was given for the field, joined by ",", with "1" or "0" at the end; empty when it
  /// has no lookup.
  std::string EditLookupAsString(std::string_view field_name) const;

  /// @{
  /// See PropertyOwner and IndexedPropertyOwner.
  PropertyValue Get(std::string_view name) const override;
  void Set(std::string_view name, const PropertyValue& value) override;
  Variant GetAt(std::string_view name, std::int16_t number) override;
  void SetAt(std::string_view name, std::int16_t number, std::string_view text) override;
  /// @}

 private:
  std::unique_ptr<component::DbView> view_;
};

}  // namespace dralo
