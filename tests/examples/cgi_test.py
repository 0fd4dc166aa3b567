#!/usr/bin/env python3
"""The example for CGI, started as a web server starts it.

usage: cgi_test.py PROGRAM [TEST...]
"""

import email
import os
import pathlib
import resource
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import unittest
import urllib.parse

ROOT = pathlib.Path(__file__).resolve().parents[2]
NEW = {"Morvu1FormDisplay": "formOneRec", "Morvu1FormUpdate": "Save", "Morvu1FormInsert": "1", "Morvu1_Form_Company": "Zwölf & Co.",
       "Morvu1_Form_City": "Ulm", "Morvu1_Form_Country": "DE", "Morvu1_Form_Since": "2024-01-31"}


class Cgi(unittest.TestCase):
    program = None

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.made = cls.folder / "made.db"
        subprocess.run([ROOT / "site/data/make_shop.py", cls.made], check=True)

    def setUp(self):
        self.shop = pathlib.Path(shutil.copy(self.made, self.folder / "shop.db"))

    def ask(self, query="", form=None, limit_bytes=None, **variables):
        """The headers and the body of the answer."""
        body = b"" if form is None else urllib.parse.urlencode(form).encode()
        given = {"REQUEST_METHOD": "GET" if form is None else "POST", "SCRIPT_NAME": "/cgi-bin/customers", "QUERY_STRING": query,
                 "HTTP_HOST": "shop.example", "SHOP": str(self.shop), "ASSETS": "/assets", "PATH": os.environ["PATH"]}
        if form is not None:
            given |= {"CONTENT_TYPE": "application/x-www-form-urlencoded", "CONTENT_LENGTH": str(len(body)),
                      "HTTP_SEC_FETCH_SITE": "same-origin"}

        def limit():
            resource.setrlimit(resource.RLIMIT_AS, (limit_bytes, limit_bytes))

        done = subprocess.run([self.program], input=body, env=given | variables, capture_output=True, timeout=120,
                              preexec_fn=limit if limit_bytes else None)
        self.assertEqual(done.returncode, 0, done.stderr)
        head, _, page = done.stdout.partition(b"\r\n\r\n")
        return email.message_from_bytes(head), page.decode()

    def rows(self, statement):
        connection = sqlite3.connect(self.shop)
        try:
            rows = connection.execute(statement).fetchall()
            connection.commit()
            return rows
        finally:
            connection.close()

    def test_shows_the_customers(self):
        headers, page = self.ask("Morvu1CurrRecord=21")
        self.assertEqual((headers["Status"], headers["Content-Type"]), ("200", "text/html; charset=utf-8"))
        self.assertIn("Records (21..40) of 400", page)
        self.assertIn('href="/assets/dralo.css"', page)
        self.assertIn("/cgi-bin/customers?", page)

    def test_sends_the_download_as_it_is_read(self):
        self.rows("DROP TRIGGER CustomersAreLimited")
        self.rows("WITH Numbers AS (SELECT 1 AS N UNION ALL SELECT N + 1 FROM Numbers LIMIT 500000) "
                  "INSERT INTO Customers (Company, City, Country, Newsletter, Since) "
                  "SELECT printf('%0200d', N), 'Oslo', 'NO', 0, '2024-01-01' FROM Numbers")
        headers, table = self.ask("Morvu1ToExcel.x=1", limit_bytes=200_000_000)
        self.assertEqual(headers["Content-Type"], "application/vnd.ms-excel")
        self.assertGreater(len(table), 200_000_000)
        self.assertTrue(table.rstrip().endswith("</table>"))

    def test_saves_for_whom_the_server_knows(self):
        headers, _ = self.ask("", NEW, REMOTE_USER="ada")
        self.assertEqual(headers["Status"], "303")
        self.assertTrue(headers["Location"].startswith("/cgi-bin/customers?"))
        self.assertEqual(self.rows("SELECT Company FROM Customers WHERE City = 'Ulm'"), [("Zwölf & Co.",)])

    def test_saves_nothing_for_others(self):
        self.ask("", NEW)
        self.assertEqual(self.ask("", NEW, REMOTE_USER="ada", HTTP_SEC_FETCH_SITE="cross-site")[0]["Status"], "403")
        self.assertEqual(self.rows("SELECT Company FROM Customers WHERE City = 'Ulm'"), [])

    def test_is_closed_without_its_shop(self):
        headers, page = self.ask(SHOP=str(self.folder / "none.db"))
        self.assertEqual((headers["Status"], page), ("503", "The shop is closed.\n"))


if __name__ == "__main__":
    Cgi.program = sys.argv[1]
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
