#!/usr/bin/env python3
"""dralo-serve over PostgreSQL and MariaDB, by their own providers and by ODBC; each has a server of its own.

usage: databases_test.py PROGRAM [TEST...]
"""

import html
import pathlib
import re
import sys

from served import ROOT, Form, ServeTest, run

sys.path.insert(0, str(ROOT / "tests/pages"))
import shops  # noqa: E402

EDIT = "?Morvu1FormDisplay=formOneRec&Morvu1PK={}&Morvu1FormEdit=1"
ADD = "?Morvu1FormDisplay=formOneRec&Morvu1FormAdd=1"


class Databases:
    """The same tests for both; `quote` stands around names."""

    @classmethod
    def setUpClass(cls):
        cls.shop = cls.shop_class(pathlib.Path())
        cls.addClassCleanup(cls.shop.close)
        cls.shop.ask("".join(f"{statement};\n" for statement in cls.statements()))

    @classmethod
    def name(cls, text):
        return cls.quote + text.replace(cls.quote, cls.quote * 2) + cls.quote

    @classmethod
    def statements(cls):
        yield f"CREATE TABLE {cls.name('Makers')} ({cls.name('Id')} {cls.shop.identity}, {cls.name('Name')} VARCHAR(40))"
        yield f"INSERT INTO {cls.name('Makers')} ({cls.name('Name')}) VALUES ('Øre & Co.'), ('Aqua')"
        yield (f"CREATE TABLE {cls.name(cls.odd)} (id {cls.shop.identity}, label VARCHAR(40) NOT NULL, "
               f"{cls.name('the maker')} INTEGER, price INTEGER, twice INTEGER GENERATED ALWAYS AS (price * 2) STORED, "
               f"FOREIGN KEY ({cls.name('the maker')}) REFERENCES {cls.name('Makers')} ({cls.name('Id')}))")
        yield (f"INSERT INTO {cls.name(cls.odd)} (label, {cls.name('the maker')}, price) "
               f"VALUES ('tea', 1, 5), ('salt', 2, 1), ('air', NULL, NULL)")
        yield "CREATE TABLE parts (no INTEGER, whole INTEGER, text VARCHAR(9), PRIMARY KEY (whole, no))"
        yield "INSERT INTO parts VALUES (1, 2, 'a'), (2, 1, 'b')"
        yield "CREATE TABLE loose (a INTEGER)"
        yield "CREATE VIEW cheap AS SELECT label FROM " + cls.name(cls.odd)

    odd = 'go/od%s #1 <b> ä'

    def serve_it(self, *options, by=None):
        return self.serve(*options, database=self.shop.connection.replace(self.shop.reached_by, by or self.shop.reached_by))

    def address(self, server, label):
        links = re.findall(r'<a href="(/table/[^"]*)"><strong>(.*?)</strong>', server.get("/")[1])
        return {html.unescape(text): html.unescape(link) for link, text in links}[label]

    def test_lists_tables_and_views(self):
        for by in (self.shop.reached_by, self.by_odbc):
            _, page = self.serve_it(by=by).get("/")
            shown = {html.unescape(name): told for name, told in re.findall(r"<strong>(.*?)</strong><span>(.*?)</span>", page)}
            self.assertEqual(shown | {}, {"cheap": "view", self.odd: "3 records", "loose": "no records", "Makers": "2 records",
                                          "parts": "2 records"} | self.more)

    def test_shows_references_by_a_text_of_theirs(self):
        for by in (self.shop.reached_by, self.by_odbc):
            server = self.serve_it(by=by)
            _, page = server.get(self.address(server, self.odd))
            self.assertIn("Records (1..3) of 3", page, server.said())
            link = html.unescape(re.search(r'<a href="([^"]*)">Aqua</a>', page)[1])
            self.assertIn("<h1>Makers</h1>", server.get(link)[1])

    def test_saves_adds_and_deletes(self):
        server = self.serve_it("--edit")
        address = self.address(server, self.odd)
        names = Form(server.get(address + ADD)[1]).controls
        self.assertIn("Morvu1_Form_the maker", names)
        self.assertNotIn("Morvu1_Form_twice", names)
        answer, page = self.save(server, address + ADD, label="new", price="7")
        self.assertEqual(answer.status, 303, page)
        [(key,)] = self.shop.rows(f"SELECT id FROM {self.name(self.odd)} WHERE label = 'new'")
        self.assertEqual(self.save(server, address + EDIT.format(key), **{"the maker": "2"})[0].status, 303)
        self.assertEqual(self.shop.rows(f"SELECT {self.name('the maker')}, price, twice FROM {self.name(self.odd)} "
                                        f"WHERE id = {key}"), [("2", "7", "14")])
        _, asked = self.press(server, address + EDIT.format(key), "Delete")
        self.shop.ask(f"DELETE FROM {self.name(self.odd)} WHERE id = {key}")
        self.assertIn("Delete this record?", asked)

    def test_orders_keys_of_several_columns_as_the_database_does(self):
        server = self.serve_it("--edit")
        self.assertEqual(self.save(server, "/table/parts" + EDIT.format("1,2"), text="new")[0].status, 303)
        self.assertEqual(self.shop.rows("SELECT text FROM parts WHERE no = 2"), [("new",)])
        self.shop.ask("UPDATE parts SET text = 'b' WHERE no = 2")

    def test_says_what_cannot_be_edited(self):
        server = self.serve_it("--edit")
        self.assertIn("Read-only: this table has no primary key", server.get("/table/loose")[1])
        self.assertIn("This is a view", server.get("/table/cheap")[1])

    def test_notices_tables_that_come_and_go(self):
        server = self.serve_it()
        self.shop.ask("CREATE TABLE passing (a INTEGER); INSERT INTO passing VALUES (4711)")
        try:
            server.get("/table/none")
            while "4711" not in server.get("/table/passing")[1]:
                pass  # What was read before is out of date within a second.
        finally:
            self.shop.ask("DROP TABLE passing")
        self.assertEqual(server.get("/table/passing")[0].status, 404)

    def test_says_that_the_server_is_away(self):
        server = self.serve_it()
        self.shop.server.stop()
        try:
            answer, page = server.get("/")
            self.assertEqual(answer.status, 503)
            self.assertIn("The database cannot be read", page)
        finally:
            self.shop.server.start()
        self.assertEqual(server.get("/")[0].status, 200)


class OnPostgresql(Databases, ServeTest):
    shop_class, quote, by_odbc = shops.PostgreSqlShop, '"', "Driver=PostgreSQL Unicode"
    more = {"covered": "1 record", "other.things": "1 record"}

    @classmethod
    def statements(cls):
        yield from super().statements()
        yield "CREATE TABLE covered (kind TEXT, id INTEGER, name TEXT, PRIMARY KEY (id) INCLUDE (name))"
        yield "INSERT INTO covered VALUES ('k', 1, 'thing')"
        yield "CREATE SCHEMA other"
        yield "CREATE TABLE other.things (id SERIAL PRIMARY KEY, name TEXT, part INTEGER REFERENCES other.things)"
        yield "INSERT INTO other.things (name, part) VALUES ('thing of another schema', 1)"

    def test_takes_no_column_for_a_key_that_its_index_only_holds(self):
        server = self.serve_it("--edit")
        self.assertIn("Morvu1PK=1&amp;", server.get("/table/covered")[1])
        edit = "/table/covered?Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1FormEdit=1"
        self.assertEqual(self.save(server, edit, name="more")[0].status, 303)
        self.assertEqual(self.shop.rows("SELECT * FROM covered"), [("k", "1", "more")])

    def test_shows_tables_of_other_schemas(self):
        server = self.serve_it("--edit")
        _, page = server.get("/table/other/things")
        self.assertIn('<a href="/table/other/things?Morvu1FormDisplay=formOneRec&Morvu1PK=1">thing of another schema</a>', page)
        self.assertEqual(self.save(server, "/table/other/things" + ADD, name="more")[0].status, 303)
        self.assertEqual(self.shop.rows("DELETE FROM other.things WHERE name = 'more' RETURNING id"), [("2",)])
        self.assertEqual(self.serve_it("other.things").get("/table/loose")[0].status, 404)


class OnMariadb(Databases, ServeTest):
    shop_class, quote, by_odbc = shops.MariaDbShop, "`", "Driver=MariaDB Unicode"
    more = {}


if __name__ == "__main__":
    run()
