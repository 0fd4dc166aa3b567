#pragma once

#include <memory>
#include <string_view>

#include "dralo/connection.h"
#include "dralo/page_context.h"
#include "platform/environment.h"
#include "platform/page_connection.h"

namespace dralo::component {

/// Lets several views on one page share one open database connection. Scripts know it as
/// "Dralo.DBConnection".
class DBConnection final : public platform::PageConnection {
 public:
  /// Makes an "ADODB.Connection" of its own; it is not open yet. `environment` must outlive the object.
  explicit DBConnection(platform::Environment& environment);

  /// Binds the connection to the page. When OnEndPage() has given a connection back, a new one takes its
  /// place, not open yet.
  void OnStartPage(platform::PageContext& page);

  /// Gives its own connection back; a connection that the page supplied stays as it is.
  void OnEndPage();

  const std::shared_ptr<platform::Connection>& Connection() const override { return connection_; }

  /// From now on uses `connection`, which stays the page's own: it is not closed at page end.
  void SetConnection(std::shared_ptr<platform::Connection> connection);

  platform::DatabaseEngine Engine() const override { return engine_; }
  std::string_view EngineName() const override;
  void SetEngineName(std::string_view name) override;

 private:
  platform::Environment& environment_;
  std::shared_ptr<platform::Connection> connection_;
  bool owns_connection_ = true;
  // Unless an engine is set it reads "ORACLE".
  platform::DatabaseEngine engine_ = platform::DatabaseEngine::kOracle;
};

}  // namespace dralo::component
