#pragma once

#include "data/database_contract.h"

namespace dralo::tests {

inline const auto kDatabases = ::testing::Values(Database{
    .name = "Sqlite",
    .connection_string =
        [](const TemporaryFolder& folder) {
          return "Provider=SQLite;Mode=ReadWriteCreate;Data Source=" + folder.File("contract.db");
        },
    .identity = "INTEGER PRIMARY KEY",
    .boolean = "BOOLEAN",
    .timestamp = "TIMESTAMP",
    .bytes = "BLOB",
});

inline std::string DatabaseName(const ::testing::TestParamInfo<Database>& info) { return info.param.name; }

}  // namespace dralo::tests
