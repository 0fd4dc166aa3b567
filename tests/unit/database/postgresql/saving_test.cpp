#include <utility>

#include "unit/database/postgresql/native_test.h"

namespace dralo::tests {

namespace {

class NativeSaving : public PostgreSqlProvider {
 protected:
  void MakeLinks() const {
    Run("CREATE TABLE links (id integer PRIMARY KEY, name text)");
    Run("INSERT INTO links SELECT i, 'one' FROM generate_series(1, 3) i");
    Run("CREATE TABLE notes (link integer, note text)");
    Run("INSERT INTO notes VALUES (2, 'first')");
  }

  /// Statements with ";" between; "\\;" is one within a statement.
  void RunAll(std::string_view statements) const {
    std::string statement;
    for (std::size_t i = 0; i < statements.size(); ++i) {
      if (statements[i] == '\\') {
        statement += statements[++i];
      } else if (statements[i] == ';') {
        Run(std::exchange(statement, {}));
      } else {
        statement += statements[i];
      }
    }
    Run(statement);
  }

  /// What the added record says of its key.
  std::string NumberOfNew() const {
    const auto recordset = Edit(connection_, "SELECT id, name FROM t");
    recordset->AddNew();
    FieldOf(*recordset, "name").SetValue("new");
    recordset->Update();
    return ValueOf(*recordset, "id");
  }

  void Rename(std::string_view sql) const {
    const auto recordset = Edit(connection_, sql);
    FieldOf(*recordset, "name").SetValue("changed");
    recordset->Update();
  }
};

TEST_F(NativeSaving, RefusesRecordsThatMayBeAnotherRowOfTheTable) {
  MakeLinks();
  for (const std::string_view sql :
       {"SELECT a.id, b.name FROM (SELECT * FROM links) a JOIN (SELECT * FROM links) b ON b.id = a.id + 1",
        "WITH c AS (SELECT * FROM links) SELECT a.id, c.name FROM links a JOIN c ON c.id = a.id + 1",
        "WITH c AS (SELECT * FROM links) SELECT a.id, b.name FROM c a JOIN c b ON b.id = a.id + 1"}) {
    EXPECT_EQ(MessageOf([&] { Rename(sql); }),
              "The records cannot be changed: the query reads the table more than once")
        << sql;
  }
  EXPECT_EQ(Ask("SELECT name FROM links"), (Lines{"'one'", "'one'", "'one'"}));
}

TEST_F(NativeSaving, SavesRecordsThatAJoinFinds) {
  MakeLinks();
  Rename("SELECT links.id, links.name FROM links JOIN notes ON notes.link = links.id");
  EXPECT_EQ(Ask("SELECT name FROM links ORDER BY id"), (Lines{"'one'", "'changed'", "'one'"}));
}

TEST_F(NativeSaving, AddsRecordsWhateverNumbersThem) {
  const std::string_view tables[] = {
      "CREATE SEQUENCE own START 7; CREATE TABLE t (id integer PRIMARY KEY DEFAULT nextval('own'), name "
      "text)",
      "CREATE TABLE t (id integer PRIMARY KEY GENERATED ALWAYS AS IDENTITY (START 7), name text)",
      "CREATE SEQUENCE own START 700; CREATE TABLE t (id bigint DEFAULT nextval('own') / 100, name text)",
      "CREATE TABLE parent (id serial, name text); ALTER SEQUENCE parent_id_seq RESTART 7; "
      "CREATE TABLE t () INHERITS (parent)",
      "CREATE TABLE parent (id serial, name text) PARTITION BY RANGE (id); ALTER SEQUENCE parent_id_seq "
      "RESTART "
      "7; CREATE TABLE t PARTITION OF parent FOR VALUES FROM (1) TO (100)",
      "CREATE TABLE t (id serial, name text); CREATE FUNCTION seven() RETURNS trigger LANGUAGE plpgsql AS "
      "'BEGIN NEW.id = 7\\; RETURN NEW\\; END'; CREATE TRIGGER seven BEFORE INSERT ON t FOR EACH ROW EXECUTE "
      "FUNCTION seven()"};
  for (const std::string_view statements : tables) {
    Run("CREATE SCHEMA now");
    Run("SET search_path = now");
    RunAll(statements);
    EXPECT_EQ(NumberOfNew(), "7") << statements;
    EXPECT_EQ(Ask("SELECT id, name FROM t"), Lines{"7 'new'"}) << statements;
    Run("DROP SCHEMA now CASCADE");
  }
}

TEST_F(NativeSaving, FindsRecordsByTheirKeysWhateverElseOfThemHasChanged) {
  const auto names = [&](std::string_view statements) {
    Run("CREATE SCHEMA now");
    Run("SET search_path = now");
    RunAll(statements);
    Run("INSERT INTO t VALUES (1, 'one', 'old'), (2, 'two', 'old')");
    const auto recordset = Edit(connection_, "SELECT note, name, id FROM t WHERE id = 2");
    FieldOf(*recordset, "name").SetValue("changed");
    Another()->Execute("UPDATE now.t SET note = 'new'");
    try {
      recordset->Update();
    } catch (const platform::Error& error) {
      EXPECT_TRUE(error.Description().starts_with("Row cannot be located")) << error.what();
    }
    const Lines rows = Ask("SELECT name FROM t ORDER BY id");
    Run("DROP SCHEMA now CASCADE");
    return rows;
  };
  for (const std::string_view statements :
       {"CREATE TABLE t (id integer PRIMARY KEY DEFERRABLE INITIALLY DEFERRED, name text, note text)",
        "CREATE TABLE t (id integer PRIMARY KEY, name text, note text); CREATE TABLE other () INHERITS (t)",
        "CREATE TABLE t (id integer PRIMARY KEY, name text, note text) PARTITION BY RANGE (id); "
        "CREATE TABLE part PARTITION OF t FOR VALUES FROM (1) TO (100)",
        "CREATE TABLE t (id integer NOT NULL UNIQUE, name text PRIMARY KEY DEFERRABLE, note text)",
        "CREATE TABLE t (id integer NOT NULL, name text, note text); "
        "CREATE UNIQUE INDEX ON t (id) INCLUDE (name)"}) {
    EXPECT_EQ(names(statements), (Lines{"'one'", "'changed'"})) << statements;
  }
  for (const std::string_view statements :
       {"CREATE TABLE t (id integer NOT NULL UNIQUE DEFERRABLE, name text, note text)",
        "CREATE TABLE t (id integer UNIQUE, name text, note text)",
        "CREATE TABLE t (id integer NOT NULL, name text, note text); "
        "CREATE UNIQUE INDEX ON t (id) WHERE id > 0",
        "CREATE TABLE t (id integer NOT NULL, name text, note text); CREATE UNIQUE INDEX ON t (abs(id))"}) {
    EXPECT_EQ(names(statements), (Lines{"'one'", "'two'"})) << statements;
  }
}

TEST_F(NativeSaving, WritesToTheTableThatWasReadWhateverItIsCalledNow) {
  Run("CREATE TABLE goods (id integer PRIMARY KEY, name text)");
  Run("INSERT INTO goods VALUES (1, 'same')");
  EXPECT_EQ(Edit(connection_, "SELECT * FROM goods")->Fields().size(), 2U);
  const auto other = Another(";Application Name=other");
  other->Execute("ALTER TABLE goods RENAME TO past");
  other->Execute("CREATE TABLE goods (id integer PRIMARY KEY, name text)");
  other->Execute("INSERT INTO goods VALUES (1, 'same')");

  const auto both = Edit(connection_, "SELECT goods.id, past.name FROM past, goods");
  FieldOf(*both, "name").SetValue("changed");
  EXPECT_EQ(MessageOf([&] { both->Update(); }),
            "The records cannot be changed: the query reads several tables");
  Rename("SELECT * FROM past");
  EXPECT_EQ(Ask("SELECT past.name, goods.name FROM past, goods"), Lines{"'changed' 'same'"});
}

TEST_F(NativeSaving, WritesToTheColumnsThatWereReadWhateverTheyAreCalledNow) {
  Run("CREATE TABLE t (id serial PRIMARY KEY, name text, note text)");
  Run("INSERT INTO t (name, note) VALUES ('same', 'same')");
  EXPECT_EQ(Edit(connection_, "SELECT * FROM t")->Fields().size(), 3U);
  const auto other = Another(";Application Name=other");
  for (const std::string_view names : {"id TO number", "name TO old", "note TO name", "old TO note"}) {
    other->Execute("ALTER TABLE t RENAME " + std::string(names));
  }

  Rename("SELECT * FROM t");
  const auto added = Edit(connection_, "SELECT * FROM t");
  added->AddNew();
  FieldOf(*added, "name").SetValue("new");
  added->Update();
  EXPECT_EQ(ValueOf(*added, "number"), "2");
  EXPECT_EQ(Ask("SELECT number, name, note FROM t ORDER BY number"),
            (Lines{"1 'changed' 'same'", "2 'new' null"}));
}

TEST_F(NativeSaving, AddsRecordsThatARulePutsElsewhere) {
  Run("CREATE TABLE t (id serial, name text)");
  Run("CREATE TABLE other (name text)");
  Run("CREATE RULE elsewhere AS ON INSERT TO t DO INSTEAD INSERT INTO other VALUES (NEW.name)");
  EXPECT_EQ(NumberOfNew(), "null");
  EXPECT_EQ(Ask("SELECT name FROM other"), Lines{"'new'"});
}

}  // namespace

}  // namespace dralo::tests
