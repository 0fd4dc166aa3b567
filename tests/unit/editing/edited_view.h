#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "component/db_view.h"
#include "state/render.h"
#include "support/fake_page.h"
#include "support/fake_records.h"
#include "support/regional_environment.h"
#include "support/temporary_database.h"

namespace dralo::tests {

/// A view with a database of its own, for what happens inside a rendering.
struct EditedView {
  /// Runs the statements in the database first.
  explicit EditedView(std::string_view statements = {},
                      platform::Environment& regional_environment = AmericanEnvironment())
      : database(statements), environment(regional_environment), view(AmericanEnvironment()) {
    view.Set("ConnectionString", database.ConnectionString());
  }

  /// Posts a view key such as ("PK", "5"); the prefix is put in front.
  void Post(std::string_view name, std::string_view value) {
    page.form.push_back({"Morvu" + Settings().Tag + std::string(name), std::string(value)});
  }

  /// What body(render) returns.
  template <class Body>
  auto Rendered(Body&& body) {
    const state::RequestKeys keys(page.GetRequest(), Settings().Tag);
    html::HtmlWriter out;
    std::vector<platform::Variant> current_record_values;
    state::Render render{.settings = Settings(),
                         .environment = environment,
                         .keys = keys,
                         .out = out,
                         .script_name = page.script_name,
                         .current_record_values = current_record_values};
    return body(render);
  }

  settings::Settings& Settings() { return view.MutableSettings(); }
  const std::string& ErrorMessage() { return Settings().ErrorMessage; }

  TemporaryDatabase database;
  platform::Environment& environment;
  FakePage page;
  component::DbView view;
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
