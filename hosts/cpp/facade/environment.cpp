#include "dralo/environment.h"

#include <utility>

#include "database/objects.h"
#include "hosts/cpp/environment.h"
#include "hosts/cpp/providers.h"

namespace dralo {

Environment::Environment(std::string_view locale, Site site)
    : services_(std::make_unique<host::Environment>(locale, std::move(site))) {}

Environment::~Environment() = default;

std::shared_ptr<Connection> Environment::MakeConnection() {
  return database::MakeConnection(host::AllProviders(), &services_->Regional());
}

std::shared_ptr<Recordset> Environment::MakeRecordset() {
  return database::MakeRecordset(&services_->Regional());
}

void Environment::LimitIdleConnections(std::size_t number, std::chrono::seconds idle_time) {
  database::LimitIdleConnections(number, idle_time);
}

void Environment::CloseIdleConnections() { database::CloseIdleConnections(); }

}  // namespace dralo
