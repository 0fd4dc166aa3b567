#!/usr/bin/env python3
"""The examples of docs/frameworks.md answer as pages do: grid, save, refusal and a long download.

usage: frameworks_test.py DOCUMENT SHOP PHP_CGI EXTENSION
"""

import html
import os
import pathlib
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import unittest
import urllib.parse

from run_examples import blocks_of

OWN = {"HTTP_HOST": "shop.example", "HTTP_ORIGIN": "https://shop.example", "HTTP_SEC_FETCH_SITE": "same-origin"}
FOREIGN = OWN | {"HTTP_ORIGIN": "https://other.example", "HTTP_SEC_FETCH_SITE": "cross-site"}
EDIT_FORM = "Morvu1FormEdit=1&Morvu1FormDisplay=formOneRec&Morvu1PK=2"
# So many customers that their download is longer than the memory that PHP may use.
LONG_SHOP = """
DROP TRIGGER CustomersAreLimited;
WITH RECURSIVE n(N) AS (SELECT 1 UNION ALL SELECT N + 1 FROM n WHERE N < 300)
INSERT INTO Customers SELECT NULL, Company, Contact, Street, PostalCode, City, Country, Phone, Email, CreditLimit, Newsletter, Since, LastVisit, Notes
FROM Customers, n;
"""


class Answer:
    def __init__(self, output):
        head, _, self.body = output.partition(b"\r\n\r\n")
        self.headers = {name.lower(): value for name, value in (line.split(": ", 1) for line in head.decode().split("\r\n"))}
        self.status = int(self.headers.get("status", "200")[:3])


class AnExample:
    """What holds for each framework; `heading` is that of its section."""

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)
        shutil.copy(arguments["shop"], self.folder / "shop.db")
        text = arguments["document"].read_text(encoding="utf-8")
        line = text[: text.index(f"\n## {self.heading}")].count("\n")
        block = next(block for block in blocks_of(arguments["document"]) if block.line > line and block.language == "php")
        (self.folder / "index.php").write_text(block.text, encoding="utf-8")

    def ask(self, query="", body="", headers=OWN):
        environment = {
            "REDIRECT_STATUS": "200", "SCRIPT_FILENAME": str(self.folder / "index.php"), "SCRIPT_NAME": "/index.php",
            "REQUEST_URI": "/customers" + (f"?{query}" if query else ""), "QUERY_STRING": query,
            "REQUEST_METHOD": "POST" if body else "GET", "CONTENT_LENGTH": str(len(body)) if body else "",
            "CONTENT_TYPE": "application/x-www-form-urlencoded" if body else "", **headers,
        }  # fmt: skip
        options = ["-n", "-d", "extension=mbstring", "-d", f"extension={arguments['extension']}", "-d", "error_reporting=E_ALL&~E_DEPRECATED",
                   "-d", "memory_limit=16M", "-d", "error_log=/dev/null"]  # fmt: skip
        process = subprocess.run([arguments["php_cgi"], *options], input=body.encode(), capture_output=True, timeout=120,
                                 env=os.environ | environment, cwd=self.folder, check=False)  # fmt: skip
        return Answer(process.stdout)

    def company(self):
        database = sqlite3.connect(self.folder / "shop.db")
        try:
            return database.execute("SELECT Company FROM Customers WHERE ID = 2").fetchone()[0]
        finally:
            database.close()

    def save(self, headers):
        form = self.ask(body=EDIT_FORM).body.decode()
        inputs = [dict(re.findall(r'(\w+)="([^"]*)"', tag)) for tag in re.findall(r"<input [^>]*>", form)]
        fields = {i["name"]: html.unescape(i.get("value", "")) for i in inputs if i.get("type") in ("text", "hidden")}
        self.assertIn("Morvu1_Form_Company", fields)
        fields |= {"Morvu1_Form_Company": "Søn & Co.", "Morvu1FormUpdate": "Save"}
        return self.ask(body=urllib.parse.urlencode(fields), headers=headers)

    def test_shows_the_grid_under_its_own_address(self):
        answer = self.ask("Morvu1CurrRecord=3")
        self.assertEqual(answer.status, 200)
        self.assertEqual(answer.headers["content-type"].lower(), "text/html; charset=utf-8")
        self.assertIn(b' action="/customers" ', answer.body)
        self.assertIn(b'<td id="drl1cell_1_1"class="DRLOTableTDodd" align="right">3</td>', answer.body)

    def test_leads_to_the_record_that_was_saved(self):
        answer = self.save(OWN)
        self.assertEqual(answer.status, 303)
        self.assertTrue(answer.headers["location"].startswith("/customers?Morvu1CurrRecord="))
        self.assertEqual(answer.body, b"")
        self.assertEqual(self.company(), "Søn & Co.")

    def test_refuses_a_form_of_another_site(self):
        before = self.company()
        answer = self.save(FOREIGN)
        self.assertEqual(answer.status, 403)
        self.assertIn(b"came from another site", answer.body)
        self.assertEqual(self.company(), before)

    def test_sends_a_download_that_is_longer_than_its_memory(self):
        with sqlite3.connect(self.folder / "shop.db") as database:
            database.executescript(LONG_SHOP)
            count = database.execute("SELECT count(*) FROM Customers").fetchone()[0]
        database.close()
        answer = self.ask(body="Morvu1ToExcel.x=5&Morvu1ToExcel.y=5")
        self.assertEqual(answer.status, 200)
        self.assertEqual(answer.headers["content-type"], "application/vnd.ms-excel")
        self.assertEqual(answer.headers["content-disposition"], "attachment; filename=DraloExcelExport.xls")
        self.assertTrue(answer.body.rstrip().endswith(b"</table>"), answer.body[-200:])
        self.assertEqual(answer.body.count(b"<tr"), count + 1)
        self.assertGreater(len(answer.body), 16 * 1024 * 1024)


class Symfony(AnExample, unittest.TestCase):
    heading = "Symfony"


class Laravel(AnExample, unittest.TestCase):
    heading = "Laravel"


class Psr7(AnExample, unittest.TestCase):
    heading = "PSR-7"


if __name__ == "__main__":
    document, shop, php_cgi, extension = sys.argv[1:]
    arguments = {"document": pathlib.Path(document).resolve(), "shop": shop, "php_cgi": php_cgi, "extension": extension}
    unittest.main(argv=sys.argv[:1], verbosity=2)
