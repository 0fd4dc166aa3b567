#include "schema.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "support/temporary_database.h"

namespace serve {
namespace {

using dralo::tests::TemporaryDatabase;

TEST(SchemaTest, IsNotReadAgainForWhoAskedBeforeItCouldNotBeRead) {
  const TemporaryDatabase database("CREATE TABLE T (A)");
  dralo::Environment environment;
  Options options;
  options.database = "Provider=SQLite;Data Source=" + database.Path() + ";Busy Timeout=0";
  Schema schema(environment, options);
  const auto asked_at = Schema::Clock::now();
  sqlite3* writer = nullptr;
  ASSERT_EQ(sqlite3_open(database.Path().c_str(), &writer), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(writer, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_THROW(schema.Tables(asked_at), dralo::Error);
  sqlite3_close(writer);
  EXPECT_THROW(schema.Tables(asked_at), dralo::Error);
  EXPECT_EQ(schema.Tables()->size(), 1u);
  schema.Forget();
  database.Run("CREATE TABLE U (A)");
  EXPECT_EQ(schema.Tables()->size(), 2u);
}

}  // namespace
}  // namespace serve
