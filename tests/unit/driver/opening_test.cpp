#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "component/db_view.h"
#include "support/fake_page.h"
#include "support/fake_records.h"
#include "support/view_page.h"

namespace dralo::driver {
namespace {

using platform::CursorType;
using platform::LockType;
using Calls = std::vector<std::string>;

/// How recordsets were used, and the number that stands in their rows: the answer to every counting query.
struct Notes {
  Calls calls;
  std::int64_t count = 45;
};

/// Three rows of a number; notes how it is used.
class NotingRecords : public tests::FakeRecords {
 public:
  explicit NotingRecords(Notes& notes) : FakeRecords(3), calls_(notes.calls), count_(notes.count) {
    Add("V", platform::TypeCode::kInteger, [&notes] { return platform::VariantView(notes.count); });
  }

  void SetMaxRecords(std::int64_t rows) override { calls_.push_back("at most " + std::to_string(rows)); }
  void SetCounting(std::string statement, std::vector<platform::Variant>) override {
    calls_.push_back("counted by " + statement);
  }
  platform::Variant Counted() override {
    calls_.emplace_back("count");
    return count_;
  }
  void Move(std::int64_t rows) override { calls_.push_back("move " + std::to_string(rows)); }
  void Open(std::string_view sql, const std::shared_ptr<platform::Connection>&, CursorType cursor,
            LockType lock, int /*options*/) override {
    Note("open " + std::string(sql), cursor, lock);
  }
  void Open(platform::Command& command, CursorType cursor, LockType lock, int /*options*/) override {
    Note("run " + command.command_text, cursor, lock);
  }
  void Close() override { calls_.emplace_back("close"); }

 private:
  void Note(const std::string& what, CursorType cursor, LockType lock) {
    calls_.push_back(what +
                     (cursor == CursorType::kForwardOnly ? ", forward only"
                      : cursor == CursorType::kStatic    ? ", static"
                                                         : ", another cursor") +
                     (lock == LockType::kReadOnly     ? ", read-only"
                      : lock == LockType::kOptimistic ? ", optimistic"
                                                      : ", another lock"));
  }

  Calls& calls_;
  std::int64_t count_;
};

/// The usual services, but every recordset is a noting one.
class NotingEnvironment : public platform::Environment {
 public:
  explicit NotingEnvironment(Notes& notes) : notes_(notes) {}

  platform::ObjectPtr CreateObject(std::string_view identifier) override {
    if (identifier == "ADODB.Recordset") return std::make_shared<NotingRecords>(notes_);
    return tests::TestEnvironment().CreateObject(identifier);
  }
  decltype(tests::TestEnvironment().Regional()) Regional() const override {
    return tests::TestEnvironment().Regional();
  }
  std::unique_ptr<platform::RegExp> CreateRegExp() override {
    return tests::TestEnvironment().CreateRegExp();
  }

 private:
  Notes& notes_;
};

struct Noted {
  Notes notes;
  NotingEnvironment environment{notes};
};

struct Opening : testing::Test, Noted, tests::ViewPage {
  Calls& calls = notes.calls;

  Opening() : ViewPage({}, environment) { Set("sql", "SELECT V FROM T"); }

  const Calls& Render() {
    calls.clear();
    view.WriteHtmlTable();
    return calls;
  }
};

constexpr char kCounted[] = "counted by SELECT COUNT(*) AS ANT FROM (SELECT V FROM T) DRALOALIAS";
constexpr char kCount[] =
    "open SELECT COUNT(*) AS ANT FROM (SELECT V FROM T) DRALOALIAS, forward only, read-only";
constexpr char kOpen[] = "open SELECT V FROM T, forward only, read-only";
constexpr char kWalkedCommand[] = "run EXEC Top10, static, read-only";
constexpr char kRunCommand[] = "run EXEC Top10, forward only, optimistic";

struct OpenedPage {
  const char* name;
  tests::Script script;
  tests::Asked asked;
  Calls calls;
};

class OpeningOf : public Opening, public testing::WithParamInterface<OpenedPage> {};

TEST_P(OpeningOf, AsksTheDatabaseForThisAndNoMore) {
  Set(GetParam().script);
  Ask(GetParam().asked);
  EXPECT_EQ(Render(), GetParam().calls);
}

// clang-format off
const OpenedPage kOpenedPages[] = {
    {"APageIsCountedByTheQueryThatReadsToItsEnd", {}, {},
     {"at most 20", kCounted, kOpen, "count", "close"}},
    {"ALaterPageReadsFromTheFirstRecordOn", {}, {{"CurrRecord", "21"}, {"maxrecords", "10"}},
     {"at most 30", kCounted, kOpen, "move 20", "count", "close"}},
    {"APageAtTheLimitNeverReadsBeyondIt", {{"RecordsMaxLimit", 25}}, {{"CurrRecord", "21"}},
     {"at most 25", kCounted, kOpen, "move 20", "count", "close"}},
    {"ALimitOfZeroReadsOneRecordBecauseZeroWouldMeanAll", {{"RecordsMaxLimit", 0}}, {},
     {"at most 1", kCounted, kOpen, "count", "close"}},
    {"ALimitBelowZeroReadsOneRecord", {{"RecordsMaxLimit", -5}}, {},
     {"at most 1", kCounted, kOpen, "count", "close"}},
    {"TheHighestNumberReadsNoMoreThanTheLimit", {{"CountRecords", false}}, {{"CurrRecord", "2147483647"}},
     {"at most 1000000", kOpen, "move 999999", "close"}},
    {"APageBehindTheLastOpensTheLastInItsPlace", {}, {{"CurrRecord", "61"}},
     {"at most 80", kCounted, kOpen, "move 60", "count", "close", "at most 80", kOpen, "move 44", "close"}},
    {"TheLastPageReadsEverything", {}, {{"LAST.x", "1"}},
     {"at most 1", kCount, "close", "at most 0", kOpen, "move 40", "close"}},
    {"ASortedPageCountsWithoutTheOrder", {{"OrderByFields", "V"}, {"OrderByDesc", true}}, {},
     {"at most 20", kCounted, "open SELECT V FROM T ORDER BY V DESC , forward only, read-only", "count",
      "close"}},
    {"AKnownCountDoesNotCount", {{"RecordCount", 5}}, {}, {"at most 21", kOpen, "close"}},
    {"AnUncountedPageReadsOneRecordMore", {{"CountRecords", false}}, {}, {"at most 21", kOpen, "close"}},
    {"ACommandIsWalkedToCountItAndRunAgain", {{"sql", "EXEC Top10"}}, {},
     {kWalkedCommand, "close", kRunCommand, "close"}},
    {"AnUncountedCommandIsRunOnce", {{"sql", "EXEC Top10"}, {"CountRecords", false}}, {},
     {kRunCommand, "close"}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Pages, OpeningOf, testing::ValuesIn(kOpenedPages),
                         [](const auto& page) { return std::string(page.param.name); });

TEST_F(Opening, CountsTheRowsOfACommand) {
  Set("sql", "EXEC Top10");
  Render();
  EXPECT_EQ(view.GetSettings().RecordCount, 3);
}

TEST_F(Opening, FailsWhenTheCountDoesNotFitThirtyTwoBits) {
  notes.count = 2'147'483'648;
  EXPECT_EQ(Render(), (Calls{"at most 20", kCounted, kOpen, "count"}));
  EXPECT_EQ(ErrorMessage(),
            "The record count must be a whole number from -2147483648 to 2147483647 in WriteHTMLTable.<br>");
  EXPECT_EQ(page.body, "");
}

TEST_F(Opening, LeavesASuppliedRecordsetToThePage) {
  Set("ADORecordset", std::make_shared<NotingRecords>(notes));
  Ask("CurrRecord", "21");
  EXPECT_EQ(Render(), Calls{"move 20"});
}

TEST_F(Opening, ShowsTheStatementOfTheFormWhenTheGridHasNone) {
  component::DbView form(environment);
  form.OnStartPage(page);
  form.Set("ConnectionString", database.ConnectionString());
  form.Set("FormSQL", std::string("SELECT V FROM F"));
  form.Set("DisplayType", std::string("form"));
  form.WriteHtmlTable();
  EXPECT_EQ(calls, (Calls{"at most 21", "open SELECT V FROM F, forward only, read-only", "close"}));
}

TEST_F(Opening, OfAGridWithoutAStatementIsTheDatabasesErrorToReport) {
  component::DbView empty(tests::TestEnvironment());
  empty.OnStartPage(page);
  empty.Set("ConnectionString", database.ConnectionString());
  empty.WriteHtmlTable();
  EXPECT_TRUE(page.body.empty());
  EXPECT_TRUE(empty.GetSettings().ErrorMessage.ends_with(" in WriteHTMLTable.<br>"));
}

}  // namespace
}  // namespace dralo::driver
