#include "dralo/db_connection.h"

#include <utility>

#include "component/db_connection.h"
#include "component/named_property.h"
#include "text/letter_case.h"

namespace dralo {
namespace {

const component::Property<component::DBConnection>* Find(std::string_view name) {
  for (const auto& row : component::DBConnectionProperties()) {
    if (text::EqualIgnoringCase(row.name, name)) return &row;
  }
  return nullptr;
}

}  // namespace

DBConnection::DBConnection(Environment& environment)
    : connection_(std::make_shared<component::DBConnection>(*environment.services_)) {}

DBConnection::DBConnection(std::shared_ptr<component::DBConnection> connection)
    : connection_(std::move(connection)) {}

DBConnection::~DBConnection() = default;

void DBConnection::OnStartPage(PageContext& page) { connection_->OnStartPage(page); }

void DBConnection::OnEndPage() { connection_->OnEndPage(); }

PropertyValue DBConnection::Get(std::string_view name) const {
  return component::GetNamed(std::as_const(*connection_), Find(name), name);
}

void DBConnection::Set(std::string_view name, const PropertyValue& value) {
  component::SetNamed(*connection_, Find(name), name, value);
}

}  // namespace dralo
