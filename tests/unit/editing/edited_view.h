#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "settings/setters.h"
#include "state/render.h"
#include "support/fake_records.h"
#include "support/rendering.h"
#include "support/temporary_database.h"

namespace dralo::tests {

/// A view with a database of its own, for what happens inside a rendering.
struct EditedView : Rendering {
  /// Runs the statements in the database first.
  explicit EditedView(std::string_view statements = {},
                      platform::Environment& regional_environment = AmericanEnvironment())
      : database(statements) {
    environment = &regional_environment;
    settings::SetConnectionString(settings, AmericanEnvironment(), database.ConnectionString());
  }

  /// Posts a view key such as ("PK", "5"); the prefix is put in front.
  void Post(std::string_view name, std::string_view value) {
    page.form.push_back({"Morvu" + settings.Tag + std::string(name), std::string(value)});
  }

  settings::Settings& Settings() { return settings; }
  const std::string& ErrorMessage() { return settings.ErrorMessage; }

  TemporaryDatabase database;
};

/// Made-up records that know how they were opened.
class OpenedRecords final : public FakeRecords {
 public:
  using FakeRecords::FakeRecords;

  std::string sql;
  std::int64_t max_records = 0;
  platform::CursorLocation location = platform::CursorLocation::kServer;
  platform::CursorType cursor = platform::CursorType::kUnspecified;
  platform::LockType lock = platform::LockType::kUnspecified;
  int closed = 0;

  void SetMaxRecords(std::int64_t rows) override { max_records = rows; }
  void SetCursorLocation(platform::CursorLocation at) override { location = at; }
  void Open(std::string_view statement, const std::shared_ptr<platform::Connection>&,
            platform::CursorType cursor_type, platform::LockType lock_type, int /*options*/) override {
    sql = statement;
    cursor = cursor_type;
    lock = lock_type;
  }
  void Close() override { ++closed; }
};

/// The recordset was opened on the client, forward and read-only, for at most one row, and closed.
inline void ExpectReadForOneRow(const OpenedRecords& records, std::string_view sql) {
  EXPECT_EQ(records.sql, sql);
  EXPECT_EQ(records.max_records, 1);
  EXPECT_EQ(records.location, platform::CursorLocation::kClient);
  EXPECT_EQ(records.cursor, platform::CursorType::kForwardOnly);
  EXPECT_EQ(records.lock, platform::LockType::kReadOnly);
  EXPECT_EQ(records.closed, 1);
}

/// Services that hand out prepared records as the next "ADODB.Recordset".
class PreparedEnvironment final : public platform::Environment {
 public:
  explicit PreparedEnvironment(std::shared_ptr<OpenedRecords> records) : records_(std::move(records)) {}

  platform::ObjectPtr CreateObject(std::string_view /*programmatic_identifier*/) override { return records_; }
  const platform::ValueFormatting& Regional() const override { return AmericanEnvironment().Regional(); }
  std::unique_ptr<platform::RegExp> CreateRegExp() override { return AmericanEnvironment().CreateRegExp(); }

 private:
  std::shared_ptr<OpenedRecords> records_;
};

}  // namespace dralo::tests
