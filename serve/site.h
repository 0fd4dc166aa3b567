#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "answer.h"
#include "database_watch.h"
#include "frame.h"
#include "host_names.h"
#include "kept_pages.h"
#include "options.h"
#include "page_starts.h"
#include "schema.h"
#include "table_page.h"
#include "users.h"

namespace serve {

/// The pages of a database. Several threads may use it.
class Site {
 public:
  /// Reads the list of tables and the user file. Throws std::runtime_error, which may be a dralo::Error, when
  /// one of them cannot be read, and when a table of the options does not exist.
  explicit Site(const Options& options);

  Answer Respond(const Request& request);

 private:
  Answer Route(const Request& request);
  Answer Start();
  Answer ShowTable(const Request& request, std::string_view path);
  std::shared_ptr<const TablePlan> PlanOf(const TableName& name, Schema::Time asked_at, std::string& trouble);
  Answer RenderOrRepeat(const Request& request, const TablePlan& plan, const TableList& tables,
                        Outcome& outcome);
  Answer Render(const Request& request, const TablePlan& plan, const TableList& tables, Outcome& outcome);
  Answer Download(const Request& request, const std::shared_ptr<const TablePlan>& plan, Outcome& outcome);
  Answer Framed(const dralo::Page& page, const TablePlan& plan, std::string_view body,
                const Outcome& outcome);
  std::shared_ptr<const std::string> StartOf(const TableList& tables, const TableName& table);
  Answer Failure(int status, std::string_view title, std::string_view sentence);
  void RequireTables();
  Frame FrameWith(TableList tables) const;

  const Options options_;
  const std::vector<std::string> host_names_;
  dralo::Environment environment_;
  Schema schema_;
  PageStarts starts_;
  DatabaseWatch watch_;
  KeptPages kept_pages_;
  std::unique_ptr<Users> users_;
};

}  // namespace serve
