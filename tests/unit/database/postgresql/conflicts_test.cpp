#include "unit/database/postgresql/native_test.h"

namespace dralo::tests {

namespace {

/// Saves that the server undoes for another transaction that came first.
class PostgreSqlConflicts : public PostgreSqlProvider {
 protected:
  PostgreSqlConflicts() {
    Run("CREATE TABLE goods (id integer PRIMARY KEY, stock integer, name text)");
    Run("INSERT INTO goods VALUES (1, 10, 'Horn'), (2, 20, 'Lute')");
  }

  /// The first `times` saves end with `sqlstate`; sequences keep what a transaction has taken.
  void MakeConflicts(int times, const std::string& sqlstate) const {
    Run("CREATE SEQUENCE tries");
    Run("CREATE FUNCTION conflict() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN IF nextval('tries') <= " +
        std::to_string(times) + " THEN RAISE EXCEPTION 'somebody was faster' USING ERRCODE = '" + sqlstate +
        "'; END IF; RETURN coalesce(NEW, OLD); END $$");
    Run("CREATE TRIGGER conflict BEFORE INSERT OR UPDATE OR DELETE ON goods FOR EACH ROW EXECUTE FUNCTION "
        "conflict()");
  }

  void SaveStock(std::string_view stock) const {
    const auto recordset = Edit(connection_, "SELECT id, stock FROM goods WHERE id = 1");
    FieldOf(*recordset, "stock").SetValue(std::string(stock));
    recordset->Update();
  }

  Lines Goods() const { return Ask("SELECT id, stock, name FROM goods ORDER BY id"); }
  Lines Tries() const { return Ask("SELECT last_value FROM tries"); }
};

TEST_F(PostgreSqlConflicts, LetASaveBeCarriedOutOnceMore) {
  for (const auto& [sqlstate, stock] : {std::pair("40001", "11"), std::pair("40P01", "12")}) {
    MakeConflicts(1, sqlstate);
    SaveStock(stock);
    EXPECT_EQ(Tries(), Lines{"2"}) << sqlstate;
    Run("DROP SEQUENCE tries");
    Run("DROP FUNCTION conflict CASCADE");
  }
  EXPECT_EQ(Goods(), (Lines{"1 12 'Horn'", "2 20 'Lute'"}));
}

TEST_F(PostgreSqlConflicts, AreSaidWhenTheyComeTwice) {
  MakeConflicts(2, "40001");
  EXPECT_EQ(ErrorOf([&] { SaveStock("11"); }).SqlState(), "40001");
  EXPECT_EQ(Goods().front(), "1 10 'Horn'");
  SaveStock("11");
  EXPECT_EQ(Goods().front(), "1 11 'Horn'");
}

TEST_F(PostgreSqlConflicts, LetADeleteAndANewRecordBeCarriedOutOnceMore) {
  MakeConflicts(1, "40P01");
  EXPECT_EQ(connection_->ChangeOneRecord("DELETE FROM goods WHERE id = 1"), 1);
  Run("ALTER SEQUENCE tries RESTART");
  const auto recordset = Edit(connection_, "SELECT id, stock, name FROM goods");
  recordset->AddNew();
  FieldOf(*recordset, "id").SetValue("3");
  recordset->Update();
  EXPECT_EQ(Goods(), (Lines{"2 20 'Lute'", "3 null null"}));
}

TEST_F(PostgreSqlConflicts, AreSaidWhereThePageHasDoneMoreBefore) {
  MakeConflicts(1, "40001");
  Run("BEGIN");
  EXPECT_EQ(ErrorOf([&] { SaveStock("11"); }).SqlState(), "40001");
  EXPECT_EQ(Tries(), Lines{"1"});
  Run("ROLLBACK");
  EXPECT_EQ(Goods().front(), "1 10 'Horn'");
}

TEST_F(PostgreSqlConflicts, OfStricterTransactionsLoseNeitherChange) {
  Run("SET SESSION CHARACTERISTICS AS TRANSACTION ISOLATION LEVEL REPEATABLE READ");
  // The rival's change is committed between the moment that the save sees and its write.
  Run("CREATE EXTENSION dblink");
  Run("CREATE SEQUENCE tries");
  Run("CREATE FUNCTION rival() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN IF nextval('tries') = 1 THEN "
      "PERFORM dblink_exec('host=127.0.0.1 port=' || current_setting('port') || ' dbname=' || "
      "current_database() || ' user=dralo password=''hush;4711''', 'UPDATE goods SET name = ''Harp'' WHERE "
      "id = "
      "1'); END IF; RETURN NULL; END $$");
  Run("CREATE TRIGGER rival BEFORE UPDATE OF stock ON goods FOR EACH STATEMENT EXECUTE FUNCTION rival()");
  SaveStock("11");
  EXPECT_EQ(Goods().front(), "1 11 'Harp'");
}

}  // namespace

}  // namespace dralo::tests
