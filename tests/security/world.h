#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "component/db_view.h"
#include "data/databases.h"
#include "dralo/page.h"
#include "record/chance.h"
#include "security/hostile_visitor.h"

namespace dralo::security {

/// Which of two databases: they are equal inside, which is what the page's own statements yield, and
/// different outside.
enum class Outside { kThis, kThat };

/// What a page's author has chosen.
struct PageScript {
  std::string_view name;
  std::string_view sql;
  std::string_view edit_sql;
  std::string_view keys = "ID";
  std::string_view new_key = "autoincrement";
  bool has_parameter = false;  ///< 7, for the "?" of the statements.
};

/// Pages that keep to the records of owner 7, each in another way.
const std::vector<PageScript>& PageScripts();

/// All that a visitor gets for a request.
struct Reply {
  int status = 200;
  std::string content_type;
  std::vector<std::pair<std::string, std::string>> headers;
  std::string body;
  std::string message;

  friend bool operator==(const Reply&, const Reply&) = default;
};

/// A database with a hardened page in front of it.
class World {
 public:
  World(const tests::Database& database, Outside outside);

  /// Makes all tables anew, and a page of that script whose other settings depend on `chance`.
  void Begin(const PageScript& script, record::Chance chance);

  Reply Send(const HostileRequest& request);

  /// Everything that the page's statements do not yield, and what they do, one record a line.
  tests::Lines OutsideRecords() const;
  tests::Lines InsideRecords() const;

 private:
  void Run(const std::vector<std::string>& statements) const;
  void SetUp(component::DbView& view) const;

  Outside outside_;
  const tests::Database& kind_;
  std::unique_ptr<tests::NewDatabase> database_;
  tests::ConnectionPtr connection_;
  const PageScript* script_ = nullptr;
  std::vector<std::pair<std::string, component::PropertyValue>> settings_;
};

}  // namespace dralo::security
