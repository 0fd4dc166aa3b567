#pragma once

#include <atomic>
#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "catalogue.h"
#include "options.h"
#include "table_plan.h"

namespace serve {

/// How many records a table has, as far as that can be found out quickly.
struct RecordCount {
  std::int64_t records = 0;
  bool has_more = false;
};

struct CountedTable {
  Table table;
  std::optional<RecordCount> count;  ///< Nothing for views, and after the first tables of many.
};

/// The tables of the database that are shown, as they were at most a second ago. Several threads may use it.
/// Failures of the database are dralo::Error.
class Schema {
 public:
  using Clock = std::chrono::steady_clock;
  using Time = Clock::time_point;

  /// Both must outlive the schema. Reads nothing yet.
  Schema(dralo::Environment& environment, const Options& options);

  const std::string& Connection() const { return connection_string_; }

  /// A request tells when it has come: if the tables could not be read since then, it does not wait for the
  /// database once more.
  TableList Tables(Time asked_at = Clock::now());

  /// The same, counted.
  std::vector<CountedTable> CountedTables();

  /// nullptr when there is no such table, or it has no columns. Of `asked_at` as Tables().
  std::shared_ptr<const TablePlan> Plan(const TableName& name, Time asked_at = Clock::now());

  /// Makes the next question read everything anew. Does not wait for one that is being answered.
  void Forget();

 private:
  struct Snapshot {
    Time read_at;
    TableList tables;
    std::map<TableName, std::shared_ptr<const TablePlan>> plans;
  };

  struct Failure {
    Time seen_at;
    dralo::Error error;
  };

  Snapshot& Current(Time asked_at);
  TableList ReadTables();
  void NoticeReplacedFile();

  dralo::Environment& environment_;
  const Options& options_;
  const std::string connection_string_;
  std::atomic<bool> is_forgotten_ = false;
  std::mutex mutex_;
  std::optional<Snapshot> snapshot_;
  std::optional<Failure> failure_;                  ///< Of the latest try to read the tables.
  std::pair<unsigned long, unsigned long> file_{};  ///< Device and number of the database file.
};

}  // namespace serve
