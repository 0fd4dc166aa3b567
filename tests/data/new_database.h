#pragma once

#include <memory>
#include <string>

#include "data/temporary_folder.h"
#include "support/database_servers.h"

namespace dralo::tests {

/// An empty database that lives as long as this object.
class NewDatabase {
 public:
  virtual ~NewDatabase() = default;
  NewDatabase(const NewDatabase&) = delete;
  NewDatabase& operator=(const NewDatabase&) = delete;

  virtual std::string ConnectionString() const = 0;

 protected:
  NewDatabase() = default;
};

/// A file, opened with `connection_string` and its path behind that.
class NewFile final : public NewDatabase {
 public:
  explicit NewFile(std::string connection_string) : connection_string_(std::move(connection_string)) {}

  std::string ConnectionString() const override { return connection_string_ + folder_.File("contract.db"); }

 private:
  const std::string connection_string_;
  const TemporaryFolder folder_;
};

/// What a database of a server is reached through.
enum class Way { kOdbc, kProvider };

/// A database of a server.
class NewServerDatabase final : public NewDatabase {
 public:
  explicit NewServerDatabase(Server server, Way way = Way::kOdbc);
  ~NewServerDatabase() override;

  std::string ConnectionString() const override { return ConnectionString(name_); }

 private:
  std::string ConnectionString(const std::string& database) const;
  void Administer(const std::string& statement) const;

  const Server server_;
  const Way way_;
  const std::string name_;
};

}  // namespace dralo::tests
