"""Pages over every kind of database: what visitors see, and what they do to the records.

usage: databases_test.py KIND PHP EXTENSION, KIND one of shops.SHOPS
"""

import re
import sys
import unittest
import urllib.parse

import database_site


class OverADatabase(unittest.TestCase):
    arguments = []

    @classmethod
    def setUpClass(cls):
        cls.site = database_site.Site(*cls.arguments)
        cls.site.__enter__()
        cls.addClassCleanup(cls.site.__exit__)
        cls.shop = cls.site.shop

    def setUp(self):
        self.visitor = self.site.visitor()

    def assert_no_error(self):
        self.assertTrue(self.visitor.page.text.endswith('<p id="error"></p>'), self.visitor.page.text[-800:])

    def columns(self, number):
        """A column of the grid shown; the record number is the first."""
        return [row[number] for row in self.visitor.page.rows]

    def open_record(self, key):
        """The one-record view by the record's link in the grid."""
        self.visitor.show("/goods.php?Morvu1maxrecords=100")
        self.visitor.follow("FormDisplay=formOneRec", f"PK={key}&")
        self.assert_no_error()

    def record(self, key, *columns):
        return self.shop.rows(f"SELECT {', '.join(columns)} FROM Goods WHERE ID = {key}")


class Grids(OverADatabase):
    def test_show_values_of_all_types(self):
        rows = self.visitor.show("/goods.php?Morvu1OrderByFields=ID").rows
        self.assertEqual(rows[0], ["1", "1", "thing 01", "1.25", "1", "True", "2/2/2024", "3/1/2024 1:05:06 AM"])
        self.assertEqual(rows[1], ["2", "2", "thing 02", "2.25", "2", "False", "2/3/2024", "3/1/2024 2:05:06 AM"])
        self.assertEqual(rows[2], ["3", "3", "thing 03 \U0001F3BB", "", "", "", "", ""])
        self.assert_no_error()

    def test_turn_pages(self):
        self.visitor.show("/goods.php?Morvu1OrderByFields=ID")
        self.assertEqual(self.columns(1), [str(n) for n in range(1, 21)])
        self.assertIn("45", self.visitor.page.text)
        for button, first, last in (("NEXT", 21, 40), ("NEXT", 41, 45), ("PREV", 21, 40), ("FIRST", 1, 20), ("LAST", 41, 45)):
            self.visitor.press(button)
            self.assertEqual(self.columns(1), [str(n) for n in range(first, last + 1)], button)
            self.assertIn(f"({first}..{last}", self.visitor.page.text)
            self.assert_no_error()

    def all_prices(self):
        """Those of all pages from the first on; databases differ about where records without one are."""
        prices = self.columns(3)
        for _ in range(2):
            self.visitor.press("NEXT")
            prices += self.columns(3)
        self.assert_no_error()
        self.assertEqual(len(prices), 45)
        return [float(price) for price in prices if price]

    def test_are_sorted_by_a_click_on_a_title(self):
        prices = [n + 0.25 for n in range(1, 46) if n != 3]
        self.visitor.show()
        self.visitor.follow("OrderByFields=3")
        self.assertEqual(self.all_prices(), prices)
        self.visitor.press("FIRST")
        self.visitor.follow("OrderByFields=3", "OrderByDesc=True")
        self.assertEqual(self.all_prices(), prices[::-1])

    def test_are_downloaded_as_a_spreadsheet(self):
        self.visitor.show()
        headers, table = self.visitor.ask("/goods.php", self.visitor.posted("ToExcel"))
        self.assertEqual(headers["Content-Type"].partition(";")[0], "application/vnd.ms-excel")
        self.assertEqual(table.count(b"</tr>"), 46)
        self.assertIn("thing 03 \U0001F3BB".encode(), table)

    def test_tell_what_is_wrong_with_a_query_and_go_on(self):
        page = self.visitor.show("/goods.php?Morvu1OrderByFields=Nothing")
        self.assertRegex(page.text, r'(?is)<p id="error">[^<]*nothing[^<]* in WriteHTMLTable\.<br></p>')
        self.assertEqual(len(self.visitor.show().rows), 20)
        self.assert_no_error()

    def test_do_not_let_a_key_become_syntax(self):
        for key in ("1'", "1 OR 1=1", "0;DELETE FROM Goods", "\U0001F3BB", "--", "%00"):
            self.visitor.show(f"/goods.php?Morvu1FormDisplay=formOneRec&Morvu1PK={key}")
        self.assertEqual(self.shop.rows("SELECT COUNT(*) FROM Goods"), [("45",)])


class Searches(OverADatabase):
    """What was typed is bound to the statement wherever it runs."""

    def test_find_pages_orders_records_and_a_spreadsheet(self):
        for hardened in ("", "&Hardened=1"):
            with self.subTest(hardened):
                self.visitor.path = "/search.php"
                self.visitor.show(f"/search.php?Name=thing&Below=30{hardened}")
                self.assertEqual(self.columns(1), [str(n) for n in range(1, 22) if n != 3])
                self.assertIn("of 28", self.visitor.page.text)
                self.visitor.press("NEXT")
                self.assertEqual(self.columns(1), [str(n) for n in range(22, 30)])
                table = self.visitor.ask("/search.php", self.visitor.posted("ToExcel"))[1]
                self.assertEqual(table.count(b"</tr>"), 29)
                self.visitor.press("FIRST")
                self.visitor.follow("OrderByFields=3")
                self.visitor.follow("OrderByFields=3", "OrderByDesc=True")
                self.assertEqual(self.columns(1), [str(n) for n in range(29, 9, -1)])
                self.visitor.follow("FormDisplay=formOneRec", "PK=29&")
                self.assertIn("thing 29", self.visitor.page.text)
                self.assert_no_error()

    def test_take_every_text_as_a_text(self):
        for text in ("' OR '1'='1", "\\", "?", "%' UNION SELECT 1,2,3 --", "\U0001F3BB"):
            page = self.visitor.show("/search.php?Below=1000&Name=" + urllib.parse.quote(text))
            self.assertLess(len(page.rows), 2, text)
        self.assertEqual(self.shop.rows("SELECT COUNT(*) FROM Goods"), [("45",)])


class Records(OverADatabase):
    """Every test has the shop as it was made, but for what it adds and deletes again."""

    def test_are_shown_one_at_a_time(self):
        self.open_record(7)
        for text in ("thing 07", "7.25", "True", "9007199254741000", "note 7", "2/8/2024"):
            self.assertIn(text, self.visitor.page.text)
        self.assertNotIn("thing 08", self.visitor.page.text)

    def test_are_edited_and_saved(self):
        note = "a\r\nlong \"text\"\\ äöü " + "x" * 10_000
        self.open_record(8)
        self.visitor.press("FormEdit")
        self.assertEqual(self.visitor.page.named("_Form_Name")["value"], "thing 08")
        self.assertNotIn("checked", self.visitor.page.named("_Form_Active"))
        for name, value in (("Name", 'O\'Neil "8" \U0001F3BB'), ("Price", "1234567,5"), ("Born", "2020-02-29"),
                            ("Seen", "2021-12-31 23:59:58"), ("Big", "9223372036854775807"),
                            ("Note", note)):
            self.visitor.type("_Form_" + name, value)
        self.visitor.tick("_Form_Active", True)
        self.visitor.choose("_Form_Country", "Österreich")
        self.visitor.press("FormUpdate")
        self.assertIn("[Record saved ok]", self.visitor.page.text)
        self.assert_no_error()
        self.assertEqual(self.record(8, "Name", "Price", "Active", "Country", "Big"),
                         [('O\'Neil "8" \U0001F3BB', self.shop.price("1234567.50"), "1", "at", "9223372036854775807")])
        [(born, seen)] = self.record(8, "Born", "Seen")
        self.assertTrue(born.startswith("2020-02-29") and seen.startswith("2021-12-31 23:59:58"), (born, seen))
        self.assertEqual(self.record(8, "CHAR_LENGTH(Note)" if hasattr(self.shop, "server") else "LENGTH(Note)"),
                         [(str(len(note)),)])

        self.visitor.press("FormEdit")
        self.assertEqual(self.visitor.page.named("_Form_Note")["value"], note)
        self.visitor.tick("_Form_Active", False)
        for name in ("Price", "Born", "Seen", "Big", "Note"):
            self.visitor.type("_Form_" + name, "")
        self.visitor.press("FormUpdate")
        self.assert_no_error()
        self.assertEqual(self.record(8, "Price", "Active", "Born", "Seen", "Big", "Note"),
                         [("NULL", "0", "NULL", "NULL", "NULL", "NULL")])

    def test_stay_as_they_are_when_an_untouched_form_is_saved(self):
        self.open_record(12)
        self.visitor.press("FormEdit")
        self.visitor.type("_Form_Price", "12.50")
        self.visitor.type("_Form_Note", "lines\r\n\tand \U0001F3BB \r\n")
        self.visitor.press("FormUpdate")
        self.assertIn("[Record saved ok]", self.visitor.page.text)
        for number in (12, 13):
            before = self.record(number, "*")
            self.save_untouched(number)
            self.assertEqual(self.record(number, "*"), before)
        self.assertEqual(self.record(12, "Price"), [(self.shop.price("12.50"),)])

    def test_become_false_where_an_unticked_box_was_null(self):
        others = ("Name", "Price", "Stock", "Born", "Seen", "Big", "Note")
        before = self.record(3, *others)
        self.assertEqual(self.record(3, "Active"), [("NULL",)])
        self.save_untouched(3)
        self.assertEqual(self.record(3, *others), before)
        self.assertEqual(self.record(3, "Active"), [("0",)])

    def save_untouched(self, number):
        self.open_record(number)
        self.visitor.press("FormEdit")
        self.visitor.press("FormUpdate")
        self.assertIn("[Record saved ok]", self.visitor.page.text)
        self.assert_no_error()

    def test_are_not_saved_with_wrong_values_until_they_are_right(self):
        before = self.record(9, "*")
        self.open_record(9)
        self.visitor.press("FormEdit")
        self.visitor.type("_Form_Name", "mine")
        self.visitor.type("_Form_Price", "dear")
        self.visitor.press("FormUpdate")
        self.assertIn("&nbsp;dear is not a number", self.visitor.page.text)
        self.assertEqual(self.visitor.page.named("_Form_Name")["value"], "mine")
        self.assertEqual(self.visitor.page.named("_Form_Price")["value"], "dear")
        self.assertEqual(self.record(9, "*"), before)

        self.visitor.type("_Form_Price", "8.5")
        self.visitor.type("_Form_Name", "")
        self.visitor.press("FormUpdate")
        self.assertIn("Record WAS NOT SAVED. Fill out all required fields.", self.visitor.page.text)
        self.assertEqual(self.record(9, "*"), before)

        self.visitor.type("_Form_Name", "x" * 21)
        self.visitor.press("FormUpdate")
        self.assertNotIn("[Record saved ok]", self.visitor.page.text)
        self.assertEqual(self.record(9, "*"), before)

        self.visitor.type("_Form_Name", "right")
        self.visitor.press("FormUpdate")
        self.assertIn("[Record saved ok]", self.visitor.page.text)
        self.assert_no_error()
        self.assertEqual(self.record(9, "Name", "Price"), [("right", self.shop.price("8.50"))])

    def test_are_added_and_deleted(self):
        self.visitor.show()
        link = re.search(r"window\.location='([^']*FormAdd=1[^']*)'", self.visitor.page.text)[1]
        self.visitor.show(link)
        self.assertFalse(self.visitor.page.has("FormDelete"))
        self.visitor.type("_Form_Name", "new thing")
        self.visitor.type("_Form_Price", "0.05")
        self.visitor.press("FormUpdate")
        self.assertIn("[New record saved ok]", self.visitor.page.text)
        self.assert_no_error()
        [(key, price)] = self.shop.rows("SELECT ID, Price FROM Goods WHERE Name = 'new thing'")
        self.assertEqual(price, self.shop.price("0.05"))

        self.open_record(key)
        self.visitor.press("FormEdit")
        self.visitor.press("FormDelete")
        self.assertIn("[Record deleted]", self.visitor.page.text)
        self.assert_no_error()
        self.assertEqual(self.record(key, "Name"), [])
        self.assertEqual(self.shop.rows("SELECT COUNT(*) FROM Goods"), [("45",)])

    def test_choose_from_another_table(self):
        self.open_record(3)
        self.visitor.press("FormEdit")
        select = self.visitor.page.named("_Form_Country")
        self.assertEqual(sorted(text for _, text in select["options"]), ["", "Deutschland", "Norge", "Österreich"])
        self.assertEqual(select["value"], "")
        self.visitor.choose("_Form_Country", "Deutschland")
        self.visitor.press("FormUpdate")
        self.assert_no_error()
        self.assertEqual(self.record(3, "Country"), [("de",)])

    def test_of_two_visitors_stay_apart(self):
        """What one saves is not overwritten with what the other saw of other records."""
        others = self.site.visitor()
        self.open_record(10)
        self.visitor.press("FormEdit")
        others.show("/goods.php?Morvu1FormDisplay=formOneRec&Morvu1FormEdit=1&Morvu1PK=11")
        self.visitor.type("_Form_Name", "ten")
        others.type("_Form_Name", "eleven")
        others.press("FormUpdate")
        self.visitor.press("FormUpdate")
        self.assertEqual(self.shop.rows("SELECT Name FROM Goods WHERE ID IN (10, 11) ORDER BY ID"),
                         [("ten",), ("eleven",)])


if __name__ == "__main__":
    OverADatabase.arguments = sys.argv[1:4]
    del sys.argv[1:4]
    unittest.main()
