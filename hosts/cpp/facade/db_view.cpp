#include "dralo/db_view.h"

#include <stdexcept>
#include <utility>

#include "component/db_connection.h"
#include "component/db_view.h"
#include "dralo/db_connection.h"
#include "text/letter_case.h"

namespace dralo {
namespace {

const component::IndexedProperty& FindIndexed(std::string_view name) {
  for (const auto& row : component::DbViewIndexedProperties()) {
    if (text::EqualIgnoringCase(row.name, name)) return row;
  }
  throw std::invalid_argument("There is no property " + std::string(name) + " with a number");
}

}  // namespace

DbView::DbView(Environment& environment)
    : view_(std::make_unique<component::DbView>(*environment.services_)) {}

DbView::~DbView() = default;
DbView::DbView(DbView&&) noexcept = default;
DbView& DbView::operator=(DbView&&) noexcept = default;

void DbView::OnStartPage(PageContext& page) { view_->OnStartPage(page); }

void DbView::OnEndPage() { view_->OnEndPage(); }

void DbView::WriteHtmlTable() { view_->WriteHtmlTable(); }

void DbView::ReceivePost() { view_->ReceivePost(); }

void DbView::QHtmlTable(std::string_view connection_string, std::string_view table_name) {
  view_->QHtmlTable(connection_string, table_name);
}

void DbView::AddEditLookup(std::string_view field_name, std::string_view lookup_table,
                           std::string_view link_field, std::string_view display_field,
                           std::string_view order_by, bool allow_nulls) {
  view_->AddEditLookup(field_name, lookup_table, link_field, display_field, order_by, allow_nulls);
}

std::string DbView::EditLookupAsString(std::string_view field_name) const {
  return std::string(view_->EditLookupAsString(field_name));
}

PropertyValue DbView::Get(std::string_view name) const {
  PropertyValue value = view_->Get(name);
  const auto* object = std::get_if<ObjectPtr>(&value);
  if (object == nullptr) return value;
  auto shared = std::dynamic_pointer_cast<component::DBConnection>(*object);
  if (shared == nullptr) return value;
  return ObjectPtr(new DBConnection(std::move(shared)));
}

void DbView::Set(std::string_view name, const PropertyValue& value) {
  const auto* object = std::get_if<ObjectPtr>(&value);
  const auto shared = object == nullptr ? nullptr : std::dynamic_pointer_cast<DBConnection>(*object);
  view_->Set(name, shared == nullptr ? value : ObjectPtr(shared->connection_));
}

Variant DbView::GetAt(std::string_view name, std::int16_t number) {
  return FindIndexed(name).get(*view_, number);
}

void DbView::SetAt(std::string_view name, std::int16_t number, std::string_view text) {
  const auto& row = FindIndexed(name);
  if (row.set == nullptr) throw std::invalid_argument(std::string(row.name) + " cannot be set");
  row.set(*view_, number, text);
}

}  // namespace dralo
