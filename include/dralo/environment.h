#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string_view>

#include "dralo/connection.h"
#include "dralo/export.h"
#include "dralo/recordset.h"
#include "dralo/site.h"

namespace dralo {

namespace platform {
class Environment;
}

/// What a process offers to every page: databases, regional settings, regular expressions. Make one per
/// process; it outlives every page, view, connection and recordset. Several threads may use it, also at the
/// same moment. After fork() a child may go on using it, but not the connections that were open.
class DRALO_EXPORT Environment {
 public:
  /// `locale` such as "de-DE"; empty takes LC_ALL, else LANG, else en-US. Throws Error when the locale is
  /// unknown, and when an origin or a host of `site` is not valid.
  explicit Environment(std::string_view locale = {}, Site site = {});
  ~Environment();
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

  /// @{
  /// New objects that are not open yet. Commands are made with std::make_shared.
  std::shared_ptr<Connection> MakeConnection();
  std::shared_ptr<Recordset> MakeRecordset();
  /// @}

  /// Limits how many connections the process keeps for later pages, 8 at first, and how long; those beyond
  /// the limits are closed. A time of 0 sets no limit. For any thread.
  static void LimitIdleConnections(std::size_t number,
                                   std::chrono::seconds idle_time = std::chrono::seconds{60});

  /// Closes the connections that the process keeps for later pages; those in use stay. For any thread.
  static void CloseIdleConnections();

 private:
  friend class DBConnection;
  friend class DbView;

  std::unique_ptr<platform::Environment> services_;
};

}  // namespace dralo
