#!/usr/bin/env python3
"""What visitors of dralo-serve can change, and what they cannot.

usage: editing_test.py PROGRAM [TEST...]
"""

import contextlib
import os
import pathlib
import re
import urllib.parse

from served import Form, ServeTest, run

EDIT = "/table/Goods?Morvu1FormDisplay=formOneRec&Morvu1PK={}&Morvu1FormEdit=1"
ADD = "/table/Goods?Morvu1FormDisplay=formOneRec&Morvu1FormAdd=1"


class Editing(ServeTest):
    def setUp(self):
        super().setUp()
        self.sql("CREATE TABLE Makers (ID INTEGER PRIMARY KEY, Name TEXT)",
                 "CREATE TABLE Goods (ID INTEGER PRIMARY KEY, Label VARCHAR(40) NOT NULL, Maker INTEGER REFERENCES Makers, "
                 "Price INTEGER, Twice INTEGER AS (Price * 2))",
                 "INSERT INTO Makers VALUES (1, 'Øre & Co.'), (2, 'Aqua')",
                 "INSERT INTO Goods (Label, Maker, Price) VALUES ('tea', 1, 5), ('salt', 2, 1)")

    def goods(self):
        return self.sql("SELECT * FROM Goods ORDER BY ID")

    def test_changes_a_record(self):
        server = self.serve("--edit")
        answer, body = self.save(server, EDIT.format(2), Label="Salz", Maker="1")
        self.assertEqual((answer.status, body), (303, ""))
        self.assertEqual(self.goods(), [(1, "tea", 1, 5, 10), (2, "Salz", 1, 1, 2)])
        self.assertIn("[Record saved ok]", server.get(answer.headers["Location"])[1])

    def test_offers_the_texts_of_another_table(self):
        _, page = self.serve("--edit").get(EDIT.format(2))
        self.assertEqual(Form(page).controls["Morvu1_Form_Maker"], "2")
        self.assertRegex(page, r'<option\s+value="1">Øre &amp; Co.\s*<')

    def test_has_no_field_for_what_is_computed(self):
        self.assertNotIn("Morvu1_Form_Twice", Form(self.serve("--edit").get(EDIT.format(2))[1]).controls)

    def test_adds_a_record_with_the_next_number(self):
        self.assertEqual(self.save(self.serve("--edit"), ADD, Label="air")[0].status, 303)
        self.assertEqual(self.goods()[2:], [(3, "air", None, None, None)])

    def test_deletes_a_record_after_asking(self):
        server = self.serve("--edit")
        _, asked = self.press(server, EDIT.format(1), "Delete")
        self.assertIn("Delete this record?", asked)
        self.assertEqual(len(self.goods()), 2)
        form = Form(asked)
        body = urllib.parse.urlencode(form.controls | {form.buttons["Delete"]: "Delete"})
        self.assertEqual(server.ask("POST", "/table/Goods", body)[0].status, 303)
        self.assertEqual(self.goods(), [(2, "salt", 2, 1, 2)])

    def test_keeps_what_was_typed_when_it_is_refused(self):
        answer, page = self.save(self.serve("--edit"), EDIT.format(1), Price="many")
        self.assertEqual((answer.status, Form(page).controls["Morvu1_Form_Price"]), (200, "many"))
        self.assertEqual(self.goods()[0], (1, "tea", 1, 5, 10))

    def test_takes_long_texts(self):
        self.sql("ALTER TABLE Makers ADD COLUMN Notes TEXT")
        text = "so long " * 20_000
        address = "/table/Makers?Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1FormEdit=1"
        self.assertEqual(self.save(self.serve("--edit"), address, Notes=text)[0].status, 303)
        self.assertEqual(self.sql("SELECT Notes FROM Makers WHERE ID = 1"), [(text,)])

    def test_types_keys_that_are_no_numbers(self):
        self.sql("CREATE TABLE Codes (Code TEXT PRIMARY KEY, Name TEXT) WITHOUT ROWID", "INSERT INTO Codes VALUES ('a/b c', 'x')")
        server = self.serve("--edit")
        add = "/table/Codes?Morvu1FormDisplay=formOneRec&Morvu1FormAdd=1"
        self.assertEqual(self.save(server, add, Code="é&1", Name="y")[0].status, 303)
        edit = "/table/Codes?Morvu1FormDisplay=formOneRec&Morvu1PK=a%2Fb+c&Morvu1FormEdit=1"
        self.assertEqual(self.save(server, edit, Name="z")[0].status, 303)
        self.assertEqual(self.sql("SELECT * FROM Codes"), [("a/b c", "z"), ("é&1", "y")])

    def test_types_numbers_that_the_database_does_not_give(self):
        self.sql("CREATE TABLE Years (Year INTEGER PRIMARY KEY DESC, Name TEXT)",
                 "CREATE TABLE Months (Month INTEGER PRIMARY KEY, Name TEXT) WITHOUT ROWID")
        server = self.serve("--edit")
        for table, number in (("Years", "Year"), ("Months", "Month")):
            add = f"/table/{table}?Morvu1FormDisplay=formOneRec&Morvu1FormAdd=1"
            self.assertEqual(self.save(server, add, **{number: "7"}, Name="y")[0].status, 303)
            self.assertEqual(self.sql(f"SELECT * FROM {table}"), [(7, "y")])

    def test_finds_records_by_keys_of_several_columns(self):
        self.sql("CREATE TABLE Lines (Text TEXT, Part INTEGER, Number INTEGER, PRIMARY KEY (Number, Part))",
                 "INSERT INTO Lines VALUES ('a', 1, 2), ('b', 2, 1), ('c', 2, 2)")
        address = "/table/Lines?Morvu1FormDisplay=formOneRec&Morvu1PK=1,2&Morvu1FormEdit=1"
        self.assertEqual(self.save(self.serve("--edit"), address, Text="new")[0].status, 303)
        self.assertEqual(self.sql("SELECT * FROM Lines"), [("a", 1, 2), ("new", 2, 1), ("c", 2, 2)])

    def test_says_why_a_table_or_view_cannot_be_edited(self):
        self.sql("CREATE TABLE Loose (A)", "INSERT INTO Loose VALUES (1)", "CREATE VIEW Cheap AS SELECT * FROM Goods")
        server = self.serve("--edit")
        for address, why in (("/table/Loose", "Read-only: this table has no primary key"), ("/table/Cheap", "This is a view")):
            _, page = server.get(address)
            self.assertIn(why, page)
            self.assertNotIn("FormAdd", page)

    def test_changes_nothing_without_edit(self):
        form = {"Morvu1FormDisplay": "formOneRec", "Morvu1PK": "1", "Morvu1FormUpdate": "Save", "Morvu1_Form_ID": "1",
                "Morvu1_Form_Label": "changed"}
        server = self.serve()
        self.assertNotIn("FormAdd", server.get("/table/Goods")[1])
        for button in ("Morvu1FormUpdate", "Morvu1FormDelete", "Morvu1FormDeleteConfirmed"):
            server.ask("POST", "/table/Goods", urllib.parse.urlencode(form | {button: "1"}))
        self.assertEqual(self.goods()[0], (1, "tea", 1, 5, 10))

    def test_opens_the_file_for_reading_only(self):
        server = self.serve()
        server.get("/table/Goods")
        process = pathlib.Path("/proc") / str(server.process.pid)
        ways = []
        for link in (process / "fd").iterdir():
            # Those of connections to visitors may be gone by now.
            with contextlib.suppress(FileNotFoundError):
                if link.readlink() == self.database:
                    [flags] = re.findall(r"flags:\s+(\d+)", (process / "fdinfo" / link.name).read_text())
                    ways.append(int(flags, 8) & os.O_ACCMODE)
        self.assertEqual(set(ways), {os.O_RDONLY})

    def test_takes_no_form_of_another_site(self):
        server = self.serve("--edit")
        form = Form(server.get(EDIT.format(1))[1])
        body = urllib.parse.urlencode(form.controls | {"Morvu1_Form_Label": "theirs", "Morvu1FormUpdate": "Save"})
        answer, _ = server.ask("POST", "/table/Goods", body, {"Sec-Fetch-Site": "cross-site"})
        self.assertEqual((answer.status, self.goods()[0][1]), (403, "tea"))


if __name__ == "__main__":
    run()
