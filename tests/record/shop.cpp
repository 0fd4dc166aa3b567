#include "record/shop.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "record/shop_tables.h"

namespace dralo::record {
namespace {

using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

Statement Prepare(sqlite3* database, std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
  if (statement == nullptr) throw std::runtime_error(sqlite3_errmsg(database));
  return {statement, &sqlite3_finalize};
}

/// SQLite's releases differ in the last digits of the numbers that they write.
std::string FloatAt(sqlite3_stmt* row, int column) {
  std::array<char, 32> digits;
  const double number = sqlite3_column_double(row, column);
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr};
}

std::string_view TextAt(sqlite3_stmt* row, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
  if (text == nullptr) return "NULL";
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

/// Every row in the order of the table, each value with its type.
void AppendRows(sqlite3* database, const std::string& table, std::string& content) {
  const Statement rows = Prepare(database, "SELECT * FROM \"" + table + "\"");
  while (sqlite3_step(rows.get()) == SQLITE_ROW) {
    for (int column = 0; column < sqlite3_column_count(rows.get()); ++column) {
      const int type = sqlite3_column_type(rows.get(), column);
      content.append(std::to_string(type)).append("=");
      if (type == SQLITE_FLOAT) {
        content += FloatAt(rows.get(), column);
      } else {
        content += TextAt(rows.get(), column);
      }
      content += '|';
    }
    content += '\n';
  }
}

/// In memory where the system has such a folder: SQLite waits for the disk at every save.
std::filesystem::path FolderForFiles() {
  const std::filesystem::path memory = "/dev/shm";
  return std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
}

}  // namespace

Shop::Shop() {
  folder_ = (FolderForFiles() / "dralo-record-XXXXXX").string();
  if (mkdtemp(folder_.data()) == nullptr) throw std::runtime_error("cannot make a temporary folder");
  original_ = Open(":memory:");
  char* message = nullptr;
  const std::string tables = ShopTables();
  if (sqlite3_exec(original_.get(), tables.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
    throw std::runtime_error(message);
  }
  file_ = Open(folder_ + "/shop.db");
  Restore();
}

Shop::~Shop() {
  file_.reset();
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

Shop::Handle Shop::Open(const std::string& path) {
  sqlite3* database = nullptr;
  const int code = sqlite3_open(path.c_str(), &database);
  Handle handle(database);
  if (code != SQLITE_OK) throw std::runtime_error("cannot open " + path);
  return handle;
}

std::int64_t Shop::Version() const {
  const Statement version = Prepare(file_.get(), "PRAGMA data_version");
  sqlite3_step(version.get());
  return sqlite3_column_int64(version.get(), 0);
}

std::string Shop::TakeChanges() {
  if (Version() == version_) return {};
  std::string content = Content();
  Restore();
  return content;
}

std::string Shop::Content() const {
  std::string content;
  const Statement tables =
      Prepare(file_.get(), "SELECT name FROM sqlite_schema WHERE type='table' ORDER BY name");
  while (sqlite3_step(tables.get()) == SQLITE_ROW) {
    const std::string name(TextAt(tables.get(), 0));
    content.append("table ").append(name).append("\n");
    AppendRows(file_.get(), name, content);
  }
  return content;
}

void Shop::Restore() {
  sqlite3_backup* backup = sqlite3_backup_init(file_.get(), "main", original_.get(), "main");
  if (backup == nullptr) throw std::runtime_error(sqlite3_errmsg(file_.get()));
  sqlite3_backup_step(backup, -1);
  if (sqlite3_backup_finish(backup) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(file_.get()));
  version_ = Version();
}

}  // namespace dralo::record
