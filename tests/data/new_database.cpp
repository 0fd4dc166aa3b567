#include "data/new_database.h"

#include <unistd.h>

#include <exception>
#include <iostream>

#include "data/shorthand.h"

/// PostgreSQL's driver loses a few bytes with each connection: its copies of the names of encodings.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
  return "leak:psqlodbc";
}

namespace dralo::tests {

namespace {

/// Tests that run at the same time are processes of their own.
std::string UnusedName() {
  static int number = 0;
  return "contract_" + std::to_string(getpid()) + "_" + std::to_string(++number);
}

}  // namespace

NewServerDatabase::NewServerDatabase(Server server, Way way)
    : server_(server), way_(way), name_(UnusedName()) {
  Administer("CREATE DATABASE " + name_);
}

NewServerDatabase::~NewServerDatabase() {
  database::CloseIdleConnections();
  try {
    Administer("DROP DATABASE " + name_ + (server_ == Server::kPostgreSql ? " WITH (FORCE)" : ""));
  } catch (const std::exception& error) {
    std::cerr << "The database of a test stays: " << error.what() << "\n";
  }
}

std::string NewServerDatabase::ConnectionString(const std::string& database) const {
  const bool is_postgresql = server_ == Server::kPostgreSql;
  const std::string name = is_postgresql ? "PostgreSQL" : "MariaDB";
  return (way_ == Way::kOdbc ? "Driver=" + name + " Unicode" : "Provider=" + name) +
         ";Server=127.0.0.1;Port=" + PortOf(server_) + ";Uid=" + kServerUser + ";Pwd={" + kServerPassword +
         "};Database=" + database;
}

void NewServerDatabase::Administer(const std::string& statement) const {
  Connect(ConnectionString(server_ == Server::kPostgreSql ? "postgres" : "mysql"))->Execute(statement);
}

}  // namespace dralo::tests
