#!/usr/bin/env python3
"""The pages of dralo-serve over SQLite: what is shown, in which order, and what is not there.

usage: pages_test.py PROGRAM [TEST...]
"""

import html
import http.client
import os
import re
import shutil

from served import Form, ServeTest, quoted, run

ODD_NAMES = ['quote"d', "apo'strophe", "[brackets]", "with blanks", "Ümläuße", "a/b", "100%", "100%25", "c#d", "?what", "comma,name",
             "<script>alert(1)</script>", "plus+and&amp;", "semi;colon", ".", "..", "~tilde", "back\\slash", "dot.name", "{brace}",
             "`tick`", "new\nline", "", " "]


def headings(page):
    return [html.unescape(re.sub("<[^>]*>|&nbsp;", "", cell)) for cell in re.findall(r'<th[^>]*class="DRLOTableTH">(.*?)</th>', page, re.DOTALL)]


def cells(page, column):
    found = re.findall(rf'<td id="drl1cell_\d+_{column}"[^>]*>(.*?)</td>', page, re.DOTALL)
    return [html.unescape(re.sub("<[^>]*>|&nbsp;", "", cell)) for cell in found]


def table_links(page):
    return [html.unescape(link) for link in re.findall(r'<a href="(/table/[^"]*)"><strong>', page)]


class Pages(ServeTest):
    def make_shop(self):
        self.sql("CREATE TABLE Makers (ID INTEGER PRIMARY KEY, City TEXT, Name TEXT)",
                 "CREATE TABLE Goods (ID INTEGER PRIMARY KEY, Label VARCHAR(40), Maker INTEGER REFERENCES makers)",
                 "CREATE VIEW Cheap AS SELECT * FROM Goods",
                 "INSERT INTO Makers VALUES (1, 'Oslo', 'Øre & Co.'), (2, 'Rome', 'Aqua')",
                 "INSERT INTO Goods VALUES (1, 'tea', 1), (2, 'salt', 2), (3, 'air', NULL)")

    def test_lists_tables_and_views_with_their_records(self):
        self.make_shop()
        self.sql("CREATE TABLE One (A)", "INSERT INTO One VALUES (1)", "CREATE TABLE None_ (A)", "CREATE TABLE Many (A)",
                 "WITH N AS (SELECT 1 A UNION ALL SELECT A + 1 FROM N LIMIT 10001) INSERT INTO Many SELECT A FROM N")
        answer, page = self.serve().get("/")
        self.assertEqual(answer.status, 200)
        self.assertEqual(re.findall(r"<strong>(\w+)</strong><span>([^<]*)</span>", page), [
            ("Cheap", "view"), ("Goods", "3 records"), ("Makers", "2 records"), ("Many", "more than 10,000 records"),
            ("None_", "no records"), ("One", "1 record")])

    def test_lists_only_the_tables_that_are_named(self):
        self.make_shop()
        server = self.serve("Goods")
        self.assertEqual(table_links(server.get("/")[1]), ["/table/Goods"])
        self.assertEqual(server.get("/table/Makers")[0].status, 404)
        self.assertEqual(cells(server.get("/table/Goods")[1], 3), ["1", "2", ""])

    def test_takes_a_file_whose_path_looks_like_a_connection_string(self):
        self.make_shop()
        (self.folder / "year=2024").mkdir()
        answer, page = self.serve(database=self.database.rename(self.folder / "year=2024/shop.db")).get("/")
        self.assertEqual((answer.status, table_links(page)), (200, ["/table/Cheap", "/table/Goods", "/table/Makers"]))
        self.assertIn("<title>Tables – shop.db</title>", page)

    def test_lists_no_tables_that_belong_to_a_virtual_one(self):
        self.sql("CREATE VIRTUAL TABLE Notes USING fts5(Body)", "CREATE TABLE Notes_more (A)", "INSERT INTO Notes VALUES ('sea wind')")
        server = self.serve()
        self.assertEqual(table_links(server.get("/")[1]), ["/table/Notes", "/table/Notes_more"])
        self.assertEqual(cells(server.get("/table/Notes")[1], 1), ["sea wind"])
        self.assertEqual(server.get("/table/Notes_data")[0].status, 404)

    def test_says_that_a_database_is_empty(self):
        for name in ("test.db", "empty.db"):
            (self.folder / "empty.db").touch()
            answer, page = self.serve(database=self.folder / name).get("/")
            self.assertEqual(answer.status, 200)
            self.assertIn("This database has no tables yet.", page)

    def test_says_above_the_view_what_is_to_be_said(self):
        self.sql("CREATE TABLE Plain (A)")
        page = self.serve().get("/table/Plain")[1]
        self.assertRegex(page, '<h1>Plain</h1>\n<p class="about">There are no records yet.</p>\n<div class="view">\n')
        self.assertTrue(page.endswith("</div>\n</main>\n</body>\n</html>\n"))

    def test_shows_an_empty_table(self):
        self.sql("CREATE TABLE Goods (ID INTEGER PRIMARY KEY, Label TEXT)")
        answer, page = self.serve().get("/table/Goods")
        self.assertEqual((answer.status, headings(page)), (200, ["#", "ID", "Label"]))
        self.assertIn("There are no records yet.", page)

    def test_shows_references_by_a_text_of_theirs(self):
        self.make_shop()
        server = self.serve()
        _, page = server.get("/table/Goods")
        self.assertEqual(headings(page), ["#", "ID", "Label", "Maker"])
        self.assertEqual(cells(page, 3), ["Øre & Co.", "Aqua", ""])
        link = html.unescape(re.search(r'<a href="([^"]*)">Aqua</a>', page)[1])
        self.assertIn("Rome", server.get(link)[1])

    def test_shows_references_that_lead_nowhere_as_they_are(self):
        self.make_shop()
        self.sql("INSERT INTO Makers VALUES (3, 'Bonn', NULL)",
                 "INSERT INTO Goods VALUES (0, 'first', 12345), (4, 'lost', 99), (5, 'nameless', 3)")
        server = self.serve()
        self.assertEqual(cells(server.get("/table/Goods")[1], 3), ["12345", "Øre & Co.", "Aqua", "", "99", ""])
        self.assertEqual(cells(server.get("/table/Goods?Morvu1OrderByFields=3")[1], 3), ["", "", "12345", "99", "Aqua", "Øre & Co."])

    def test_sorts_by_what_is_shown(self):
        self.make_shop()
        self.assertEqual(cells(self.serve().get("/table/Goods?Morvu1OrderByFields=3")[1], 2), ["air", "salt", "tea"])

    def test_breaks_off_a_download_that_fails(self):
        for records, name in ((10, "Short"), (50000, "Long")):
            self.sql(f"CREATE VIEW {name} AS WITH N AS (SELECT 1 A UNION ALL SELECT A + 1 FROM N LIMIT {records}) "
                     f"SELECT A, CASE A WHEN {records - 1} THEN abs(-9223372036854775808) ELSE printf('%050d', A) END B FROM N")
        server = self.serve()
        for name in ("Short", "Long"):
            with self.subTest(name=name), self.assertRaises(http.client.IncompleteRead):
                server.get(f"/table/{name}?Morvu1ToExcel.x=1")
        self.assertIn("integer overflow", server.said())
        self.assertEqual(server.get("/table/Long")[0].status, 200)

    def test_shows_a_page_for_a_download_that_fails_before_it_is_known_as_one(self):
        self.sql("CREATE VIEW Bad AS SELECT 1 A UNION ALL SELECT abs(-9223372036854775808)")
        answer, page = self.serve().get("/table/Bad?Morvu1%54oExcel.x=1")
        self.assertEqual(answer.status, 200)
        self.assertRegex(page, '(?s)<!doctype html>.*<h1>Bad</h1>\n<p class="error".*</p>\n<div class="view">.*</html>\n$')
        self.assertEqual(page.count("</html>"), 1)

    def test_turns_pages(self):
        self.sql("CREATE TABLE Numbers (N INTEGER PRIMARY KEY)",
                 "WITH M AS (SELECT 1 N UNION ALL SELECT N + 1 FROM M LIMIT 60) INSERT INTO Numbers SELECT N FROM M")
        server = self.serve()
        self.assertIn("Records (1..25) of 60", server.get("/table/Numbers")[1])
        self.assertEqual(cells(server.get("/table/Numbers?Morvu1CurrRecord=51")[1], 1), [str(n) for n in range(51, 61)])

    def test_downloads_a_table(self):
        self.make_shop()
        answer, sheet = self.serve().get("/table/Goods?Morvu1ToExcel.x=1")
        self.assertEqual((answer.status, answer.headers["Content-Type"]), (200, "application/vnd.ms-excel"))
        self.assertEqual(answer.headers["Transfer-Encoding"], "chunked")
        self.assertEqual(re.findall("<t[dh][^>]*>([^<]*)", sheet)[:6], ["ID", "Label", "Maker", "1", "tea", "Øre &amp; Co.&nbsp;"])
        self.assertNotIn("<title>", sheet)

    def test_shows_a_page_for_a_word_that_is_no_download(self):
        self.make_shop()
        answer, page = self.serve().get("/table/Goods?note=ToExcel")
        self.assertEqual((answer.status, cells(page, 2)), (200, ["tea", "salt", "air"]))
        self.assertIn("<h1>Goods</h1>", page)

    def test_shows_tables_of_any_name(self):
        for name in ODD_NAMES:
            self.sql(f"CREATE TABLE {quoted(name)} ({quoted('key ' + name)} INTEGER PRIMARY KEY, {quoted(name)} VARCHAR(40))",
                     f"INSERT INTO {quoted(name)} VALUES (7, 'the value')")
        server = self.serve("--edit")
        _, start = server.get("/")
        self.assertEqual(len(table_links(start)), len(ODD_NAMES))
        self.assertNotIn("<script>alert", start)
        shown = set()
        for link in table_links(start):
            with self.subTest(link=link):
                answer, page = server.get(link)
                self.assertEqual((answer.status, cells(page, 2)), (200, ["the value"]))
                shown.add(headings(page)[2])
                record = html.unescape(re.search('class="DRLOTable" href="([^"]*)"', page)[1])
                _, one = server.get(record)
                self.assertIn("the value", one)
                self.assertNotIn("<script>alert", page + one)
        self.assertEqual(shown, set(ODD_NAMES))

    def test_saves_in_tables_of_any_name(self):
        # Keys that fit into no list, and columns without a name, make a table read-only.
        names = [name for name in ODD_NAMES if name.strip() and "," not in name]
        for name in names:
            self.sql(f"CREATE TABLE {quoted(name)} ({quoted('key ' + name)} INTEGER PRIMARY KEY, {quoted(name)} VARCHAR(40))",
                     f"INSERT INTO {quoted(name)} VALUES (7, 'the value')")
        server = self.serve("--edit")
        for link in table_links(server.get("/")[1]):
            edit = f"{link}?Morvu1FormDisplay=formOneRec&Morvu1PK=7&Morvu1FormEdit=1"
            controls = Form(server.get(edit)[1]).controls
            self.assertIn("the value", controls.values(), link)
            [name] = [key.removeprefix("Morvu1_Form_") for key, value in controls.items() if value == "the value"]
            answer, page = self.save(server, edit, **{name: "another <b>"})
            self.assertEqual(answer.status, 303, (name, page))
        for name in names:
            with self.subTest(name=name):
                self.assertEqual(self.sql(f"SELECT * FROM {quoted(name)}"), [(7, "another <b>")])

    def test_shows_two_thousand_columns(self):
        columns = [f"c{number}" for number in range(2000)]
        self.sql(f"CREATE TABLE Wide ({', '.join(f'{name} INTEGER' for name in columns)})",
                 "INSERT INTO Wide (c0, c1999) VALUES (1, 2)")
        answer, page = self.serve().get("/table/Wide")
        self.assertEqual((answer.status, headings(page)[1:], cells(page, 2000)), (200, columns, ["2"]))

    def test_says_what_cannot_be_read(self):
        self.make_shop()
        self.sql("CREATE VIEW Broken AS SELECT * FROM Gone")
        server = self.serve()
        answer, page = server.get("/table/Broken")
        self.assertEqual(answer.status, 500)
        self.assertIn("This table or view cannot be read.", page)
        self.assertIn("no such table: main.Gone", server.said())
        self.assertNotIn("main.Gone", page)

    def test_has_a_page_for_what_is_not_there(self):
        self.make_shop()
        server = self.serve()
        for address, title in (("/nothing", "There is no such page"), ("/table/None", "There is no such table"),
                               ("/table/a/b/c", "There is no such table"), ("/table/%zz", "There is no such table"),
                               ("/table/", "There is no such table"), ("/table/%00", "There is no such table")):
            answer, page = server.get(address)
            self.assertEqual((address, answer.status), (address, 404))
            self.assertIn(f"<h1>{title}</h1>", page)
            self.assertIn('<a href="/">All tables</a>', page)
        self.assertEqual(server.get("/assets/none.gif")[0].status, 404)

    def test_lists_no_more_than_a_hundred_tables_beside_a_page(self):
        self.sql(*(f"CREATE TABLE T{number} (A)" for number in range(101)))
        server = self.serve()
        self.assertEqual(len(table_links(server.get("/")[1])), 101)
        _, page = server.get("/table/T5")
        self.assertIn("All 101 tables", page)
        self.assertEqual(re.findall('<li><a href="(/table/[^"]*)"', page), ["/table/T5"])


class Changes(ServeTest):
    """The database changes while it is shown."""

    def setUp(self):
        super().setUp()
        self.sql("CREATE TABLE Goods (ID INTEGER PRIMARY KEY, Label TEXT)", "INSERT INTO Goods VALUES (1, 'tea')",
                 "CREATE TABLE Other (A)")
        self.server = self.serve()
        self.assertEqual(self.server.get("/table/Goods")[0].status, 200)

    def test_says_that_a_table_was_dropped(self):
        self.sql("DROP TABLE Goods")
        answer, page = self.server.get("/table/Goods")
        self.assertEqual(answer.status, 404)
        self.assertIn("It may have been dropped or renamed.", page)

    def test_shows_an_altered_table_as_it_is(self):
        self.sql("ALTER TABLE Goods RENAME COLUMN Label TO Title")
        answer, page = self.server.get("/table/Goods")
        self.assertEqual((answer.status, headings(page)), (200, ["#", "ID", "Title"]))

    def test_shows_the_file_that_took_the_place_of_another(self):
        shutil.copy(self.database, self.folder / "new.db")
        self.database, old = self.folder / "new.db", self.database
        self.sql("UPDATE Goods SET Label = 'coffee'")
        os.rename(self.database, old)
        self.assertEqual(cells(self.server.get("/table/Goods")[1], 2), ["coffee"])

    def test_waits_for_a_file_that_is_away(self):
        away = self.folder / "away.db"
        os.rename(self.database, away)
        # What was read a moment ago may still be known.
        self.server.get("/table/None")
        answer, page = self.server.get("/table/Goods")
        self.assertIn(answer.status, (200, 503))
        os.rename(away, self.database)
        self.assertEqual(self.server.get("/table/Goods")[0].status, 200)


if __name__ == "__main__":
    run()
