#include "component/db_connection.h"

#include <array>
#include <utility>

#include "text/letter_case.h"

namespace dralo::component {
namespace {

using platform::DatabaseEngine;

struct EngineName {
  std::string_view name;
  DatabaseEngine engine;
};

constexpr auto kEngineNames = std::to_array<EngineName>({
    {"ORACLE", DatabaseEngine::kOracle},
    {"SQLA", DatabaseEngine::kSqla},
    {"MSSQL", DatabaseEngine::kMssql},
    {"ACCESS", DatabaseEngine::kAccess},
});

}  // namespace

DBConnection::DBConnection(platform::Environment& environment)
    : environment_(environment),
      connection_(platform::Create<platform::Connection>(environment, "ADODB.Connection")) {}

void DBConnection::OnStartPage(platform::PageContext& /*page*/) {
  if (connection_ != nullptr || !owns_connection_) return;
  connection_ = platform::Create<platform::Connection>(environment_, "ADODB.Connection");
}

void DBConnection::OnEndPage() {
  if (owns_connection_) connection_.reset();
}

void DBConnection::SetConnection(std::shared_ptr<platform::Connection> connection) {
  connection_ = std::move(connection);
  owns_connection_ = false;
}

std::string_view DBConnection::EngineName() const {
  for (const auto& [name, engine] : kEngineNames) {
    if (engine == engine_) return name;
  }
  return "ORACLE";
}

void DBConnection::SetEngineName(std::string_view name) {
  engine_ = DatabaseEngine::kOracle;
  for (const auto& [known, engine] : kEngineNames) {
    if (text::EqualIgnoringCase(known, name)) engine_ = engine;
  }
}

}  // namespace dralo::component
