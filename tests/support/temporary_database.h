#pragma once

#include <string>
#include <string_view>

namespace dralo::tests {

/// A SQLite file of its own in a folder of its own, deleted with the object.
class TemporaryDatabase {
 public:
  /// Runs the statements, separated by ";".
  explicit TemporaryDatabase(std::string_view statements = {});
  ~TemporaryDatabase();
  TemporaryDatabase(const TemporaryDatabase&) = delete;
  TemporaryDatabase& operator=(const TemporaryDatabase&) = delete;

  const std::string& Path() const { return path_; }

  /// For the ConnectionString property.
  std::string ConnectionString() const { return "Provider=SQLite;Data Source=" + path_; }

  /// Runs more statements.
  void Run(std::string_view statements) const;

  /// The first column of the first row as text; "NULL" for Null and "" when there is no row.
  std::string Value(std::string_view query) const;

 private:
  std::string folder_;
  std::string path_;
};

}  // namespace dralo::tests
