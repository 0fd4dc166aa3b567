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

}  // namespace

}  // namespace dralo::tests
