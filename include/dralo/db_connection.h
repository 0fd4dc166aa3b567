#pragma once

#include <memory>
#include <string_view>

#include "dralo/db_connection_properties.h"
#include "dralo/environment.h"
#include "dralo/export.h"
#include "dralo/object.h"
#include "dralo/page_context.h"

namespace dralo {

namespace component {
class DBConnection;
}

/// Lets several views on one page share one open database connection. Belongs to the thread of its page; the
/// views keep it alive.
class DRALO_EXPORT DBConnection final : public Object, public DBConnectionProperties {
 public:
  /// Makes a connection of its own; it is not open yet. `environment` must outlive the object.
  explicit DBConnection(Environment& environment);
  ~DBConnection() override;

  /// Binds the connection to the page. When OnEndPage() has given a connection back, a new one takes its
  /// place, not open yet.
  void OnStartPage(PageContext& page);

  /// Gives its own connection back; one that was assigned stays as it is.
  void OnEndPage();

  /// @{
  /// See PropertyOwner.
  PropertyValue Get(std::string_view name) const override;
  void Set(std::string_view name, const PropertyValue& value) override;
  /// @}

 private:
  friend class DbView;

  explicit DBConnection(std::shared_ptr<component::DBConnection> connection);

  std::shared_ptr<component::DBConnection> connection_;
};

}  // namespace dralo
