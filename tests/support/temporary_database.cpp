#include "support/temporary_database.h"

#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>

namespace dralo::tests {
namespace {

using Handle = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;

Handle OpenFile(const std::string& path) {
  sqlite3* database = nullptr;
  const int code = sqlite3_open(path.c_str(), &database);
  Handle handle(database, &sqlite3_close);
  if (code != SQLITE_OK) throw std::runtime_error("cannot open " + path);
  // The file does not outlive the test: nothing is gained by waiting for the disk.
  sqlite3_exec(database, "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
  return handle;
}

void Check(int code, sqlite3* database) {
  if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(database));
}

}  // namespace

TemporaryDatabase::TemporaryDatabase(std::string_view statements) {
  std::string folder = (std::filesystem::temp_directory_path() / "dralo-test-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("cannot make a temporary folder");
  folder_ = folder;
  path_ = folder_ + "/test.db";
  Run(statements.empty() ? "PRAGMA user_version=1" : statements);
}

TemporaryDatabase::~TemporaryDatabase() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

void TemporaryDatabase::Run(std::string_view statements) const {
  const Handle database = OpenFile(path_);
  Check(sqlite3_exec(database.get(), std::string(statements).c_str(), nullptr, nullptr, nullptr),
        database.get());
}

std::string TemporaryDatabase::Value(std::string_view query) const {
  const Handle database = OpenFile(path_);
  sqlite3_stmt* raw = nullptr;
  Check(sqlite3_prepare_v2(database.get(), query.data(), static_cast<int>(query.size()), &raw, nullptr),
        database.get());
  const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(raw, &sqlite3_finalize);
  if (sqlite3_step(raw) != SQLITE_ROW) return "";
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(raw, 0));
  return text == nullptr ? "NULL" : std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(raw, 0)));
}

}  // namespace dralo::tests
