#include "unit/database/postgresql/native_test.h"
#include "unit/database/postgresql/proxy.h"

namespace dralo::tests {

namespace {

/// How often a page waits for the server.
class Trips : public PostgreSqlProvider {
 protected:
  void SetUp() override {
    Run("CREATE TABLE goods (id integer PRIMARY KEY, name varchar(20), stock integer)");
    Run("INSERT INTO goods SELECT i, 'good ' || i, i % 3 FROM generate_series(1, 1000) i");
    connection_ = Another(";Port=" + proxy_.Port() + ";SSL Mode=disable");
  }

  template <typename Action>
  int TripsOf(const Action& action) const {
    const int before = proxy_.Trips();
    action();
    return proxy_.Trips() - before;
  }

  /// The records behind the first `passed` ones, with their number, as the grid asks for them.
  Lines CountedPage(std::string_view sql, int passed) const {
    auto recordset = database::MakeRecordset();
    recordset->SetMaxRecords(passed + 20);
    recordset->SetCounting("SELECT COUNT(*) FROM (" + std::string(sql) + ") counted");
    recordset->Open(sql, connection_);
    recordset->Move(passed);
    const std::string number = Shown(platform::View(recordset->Counted()));
    Lines lines = Rest(*recordset);
    lines.insert(lines.begin(), number);
    return lines;
  }

  const Proxy proxy_{Proxy::Manner::kPassing, PortOf(dralo::tests::Server::kPostgreSql)};
};

TEST_F(Trips, AreOneForAPageWithItsNumberOfRecords) {
  const std::string sql = "SELECT id, name FROM goods ORDER BY id";
  for (const int passed : {0, 20, 900, 990, 2000}) {
    CountedPage(sql, passed);
    Lines page;
    EXPECT_EQ(TripsOf([&] { page = CountedPage(sql, passed); }), 1) << passed;
    EXPECT_EQ(page.front(), "1000");
    EXPECT_EQ(page.size(), passed == 2000 ? 1u : passed == 990 ? 11u : 21u);
    page.resize(2);
    EXPECT_EQ(page[1].substr(0, page[1].find(' ')), passed == 2000 ? "" : std::to_string(passed + 1));
  }
}

TEST_F(Trips, AreOneMoreForAPageThatIsNewToTheConnection) {
  CountedPage("SELECT name FROM goods", 0);
  EXPECT_EQ(TripsOf([&] { CountedPage("SELECT name FROM goods WHERE id > 0", 0); }), 1);
  // One asks for the key of the table.
  EXPECT_EQ(TripsOf([&] { CountedPage("SELECT id, name FROM goods ORDER BY stock", 0); }), 2);
  EXPECT_EQ(TripsOf([&] { CountedPage("SELECT id, name FROM goods ORDER BY id", 0); }), 1);
  EXPECT_EQ(TripsOf([&] { CountedPage("SELECT id, name FROM goods ORDER BY name", 900); }), 2);
}

TEST_F(Trips, AreTwoForTheNumberOfRecordsOfALongResult) {
  const std::string sql = "SELECT id FROM goods";
  const auto read = [&] {
    auto recordset = database::MakeRecordset();
    recordset->SetCounting("SELECT COUNT(*) FROM (" + sql + ") counted");
    recordset->Open(sql, connection_);
    EXPECT_EQ(Shown(platform::View(recordset->Counted())), "1000");
    EXPECT_EQ(Rest(*recordset).size(), 1000u);
  };
  read();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(TripsOf(read), 2);
}

TEST_F(Trips, RunNothingThatCannotBeCounted) {
  Run("CREATE SEQUENCE calls");
  const auto open = [&](std::string_view sql, std::string_view counting, int max_records) {
    auto recordset = database::MakeRecordset();
    recordset->SetMaxRecords(max_records);
    recordset->SetCounting(std::string(counting));
    recordset->Open(sql, connection_);
    recordset->Counted();
  };
  for (const int max_records : {0, 1, 5, 1000}) {
    for (int i = 0; i < 3; ++i) {
      const auto error = ErrorOf([&] {
        open("SELECT nextval('calls') AS n", "SELECT COUNT(*) FROM (SELECT nothing) counted", max_records);
      });
      EXPECT_EQ(error.SqlState(), "42703");
      EXPECT_EQ(error.Source(), "SELECT COUNT(*) FROM (SELECT nothing) counted");
    }
  }
  EXPECT_EQ(Ask("SELECT is_called FROM calls"), Lines{"false"});
  EXPECT_THROW(open("DELETE FROM goods", "SELECT COUNT(*) FROM nothing", 5), platform::Error);
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM goods"), Lines{"1000"});
}

TEST_F(Trips, TellTheNumberOfRecordsThatCannotBeRead) {
  const auto open = [&] {
    auto recordset = database::MakeRecordset();
    recordset->SetMaxRecords(5);
    recordset->SetCounting("SELECT COUNT(*) FROM goods");
    recordset->Open("SELECT 6 / stock AS n FROM goods WHERE id = 2", connection_);
    EXPECT_EQ(Shown(platform::View(recordset->Counted())), "1000");
    return recordset;
  };
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Rest(*open()), Lines{"3"});
  Run("UPDATE goods SET stock = 0 WHERE id = 2");
  const auto recordset = open();
  EXPECT_EQ(ErrorOf([&] { recordset->Eof(); }).SqlState(), "22012");
}

TEST_F(Trips, AreTwoForARecordThatIsFoundByItsKey) {
  const auto find = [&] { return Rest(*Edit(connection_, "SELECT * FROM goods WHERE id = 7")); };
  find();
  EXPECT_EQ(TripsOf([&] { EXPECT_EQ(find(), Lines{"7 'good 7' 1"}); }), 2);
}

TEST_F(Trips, AreFiveForASave) {
  const auto save = [&](const std::string& name) {
    const auto recordset = Edit(connection_, "SELECT * FROM goods WHERE id = 7");
    FieldOf(*recordset, "name").SetValue(name);
    recordset->Update();
  };
  save("first");
  EXPECT_EQ(TripsOf([&] { save("second"); }), 5);
  EXPECT_EQ(Ask("SELECT name FROM goods WHERE id = 7"), Lines{"'second'"});
}

TEST_F(Trips, AreFiveForARecordThatIsAdded) {
  Run("CREATE TABLE notes (id serial PRIMARY KEY, note text)");
  const auto add = [&] {
    const auto recordset = Edit(connection_, "SELECT * FROM notes");
    recordset->AddNew();
    FieldOf(*recordset, "note").SetValue("new");
    recordset->Update();
    return ValueOf(*recordset, "id");
  };
  add();
  EXPECT_LE(TripsOf([&] { EXPECT_EQ(add(), "2"); }), 5);
}

TEST_F(Trips, FollowTablesAndPreparedStatementsThatChange) {
  const std::string sql = "SELECT * FROM goods ORDER BY id";
  for (int i = 0; i < 3; ++i) CountedPage(sql, 0);
  Run("DEALLOCATE ALL");
  EXPECT_EQ(CountedPage(sql, 0)[1], "1 'good 1' 1");
  Another()->Execute("ALTER TABLE goods DROP name");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(CountedPage(sql, 0)[1], "1 1");
  Run("BEGIN");
  EXPECT_EQ(CountedPage(sql, 980).size(), 21u);
  EXPECT_EQ(ErrorOf([&] { CountedPage("SELECT nothing FROM goods", 0); }).SqlState(), "42703");
  EXPECT_EQ(CountedPage(sql, 980).front(), "1000");
  Run("COMMIT");
}

}  // namespace

}  // namespace dralo::tests
