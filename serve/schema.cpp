#include "schema.h"

#include <sys/stat.h>

#include <algorithm>

#include "text.h"

namespace serve {
namespace {

constexpr auto kLifetime = std::chrono::seconds(1);

/// Larger tables are not counted to the end, and later tables not at all, so that counting takes only a
/// moment.
constexpr std::int64_t kMostCountedRecords = 10000;
constexpr std::size_t kMostCountedTables = 200;

bool IsWanted(const Options& options, const TableName& table) {
  const std::string whole = table.schema.empty() ? table.name : table.schema + "." + table.name;
  return options.tables.empty() || std::ranges::find(options.tables, whole) != options.tables.end();
}

std::optional<RecordCount> CountRecords(Rows& rows, const std::string& quoted_table) {
  try {
    const auto counted = rows.Query("SELECT count(*) FROM (SELECT 1 AS one FROM " + quoted_table + " LIMIT " +
                                    std::to_string(kMostCountedRecords + 1) + ") AS counted");
    const std::int64_t records = std::stoll(counted.front().front());
    return RecordCount{std::min(records, kMostCountedRecords), records > kMostCountedRecords};
  } catch (const dralo::Error&) {
    return std::nullopt;  // The table's own page says why it cannot be read.
  }
}

/// A foreign key may write the name of its table in another letter case, or point to a table that is not
/// shown.
void Resolve(std::optional<Reference>& reference, const std::vector<Table>& tables) {
  if (!reference || std::ranges::find(tables, reference->table, &Table::name) != tables.end()) return;
  const auto found = std::ranges::find_if(tables, [&](const Table& table) {
    return table.name.schema == reference->table.schema &&
           Lower(table.name.name) == Lower(reference->table.name);
  });
  if (found == tables.end()) {
    reference.reset();
  } else {
    reference->table = found->name;
  }
}

/// Whether all references, which are resolved, are to stored tables.
bool ReferToStored(const std::vector<Column>& columns, const std::vector<Table>& tables) {
  return std::ranges::all_of(columns, [&](const Column& column) {
    return !column.reference || std::ranges::find(tables, column.reference->table, &Table::name)->is_stored;
  });
}

}  // namespace

Schema::Schema(dralo::Environment& environment, const Options& options)
    : environment_(environment), options_(options), connection_string_(ConnectionString(options)) {}

TableList Schema::Tables(Time asked_at) {
  const std::scoped_lock lock(mutex_);
  return Current(asked_at).tables;
}

std::vector<CountedTable> Schema::CountedTables() {
  std::vector<CountedTable> counted;
  Rows rows(environment_, connection_string_);
  const Catalogue& catalogue = FindCatalogue(rows);
  const TableList tables = Tables();
  for (const Table& table : *tables) {
    const bool is_counted = !table.is_view && counted.size() < kMostCountedTables;
    counted.push_back({table, is_counted ? CountRecords(rows, Quoted(catalogue, table.name)) : std::nullopt});
  }
  return counted;
}

std::shared_ptr<const TablePlan> Schema::Plan(const TableName& name, Time asked_at) {
  const std::scoped_lock lock(mutex_);
  Snapshot& snapshot = Current(asked_at);
  const auto table = std::ranges::find(*snapshot.tables, name, &Table::name);
  if (table == snapshot.tables->end()) return nullptr;
  std::shared_ptr<const TablePlan>& plan = snapshot.plans[name];
  if (plan != nullptr) return plan;
  Rows rows(environment_, connection_string_);
  const Catalogue& catalogue = FindCatalogue(rows);
  std::vector<Column> columns = catalogue.Columns(rows, name);
  if (columns.empty()) return nullptr;
  for (Column& column : columns) Resolve(column.reference, *snapshot.tables);
  const auto columns_of = [&](const TableName& other) { return catalogue.Columns(rows, other); };
  const bool is_stored = table->is_stored && ReferToStored(columns, *snapshot.tables);
  TablePlan made = MakePlan(*table, std::move(columns), columns_of, catalogue);
  made.is_stored = is_stored;
  plan = std::make_shared<const TablePlan>(std::move(made));
  return plan;
}

void Schema::Forget() { is_forgotten_ = true; }

Schema::Snapshot& Schema::Current(Time asked_at) {
  const Time now = Clock::now();
  if (is_forgotten_.exchange(false)) snapshot_.reset();
  if (snapshot_ && now - snapshot_->read_at < kLifetime) return *snapshot_;
  // Who has waited while others waited for a database in vain does not wait for it once more.
  if (failure_ && asked_at < failure_->seen_at) throw failure_->error;
  failure_.reset();
  snapshot_.reset();
  try {
    return snapshot_.emplace(Snapshot{now, ReadTables(), {}});
  } catch (const dralo::Error& error) {
    failure_.emplace(Failure{Clock::now(), error});
    throw;
  }
}

TableList Schema::ReadTables() {
  NoticeReplacedFile();
  Rows rows(environment_, connection_string_);
  std::vector<Table> tables = FindCatalogue(rows).Tables(rows);
  std::erase_if(tables, [&](const Table& table) { return !IsWanted(options_, table.name); });
  return std::make_shared<const std::vector<Table>>(std::move(tables));
}

/// A kept connection sees by itself that its file is no longer where it was, but not that another one of the
/// same number on another device is there now.
void Schema::NoticeReplacedFile() {
  struct stat status = {};
  if (stat(options_.database.c_str(), &status) != 0) return;
  const std::pair<unsigned long, unsigned long> file(status.st_dev, status.st_ino);
  if (std::exchange(file_, file) != file) dralo::Environment::CloseIdleConnections();
}

}  // namespace serve
