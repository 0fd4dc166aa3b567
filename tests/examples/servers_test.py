#!/usr/bin/env python3
"""An example server, as its visitors meet it: all of them show the same shop.

usage: servers_test.py PROGRAM [TEST...]
"""

import base64
import concurrent.futures
import pathlib
import re
import shutil
import socket
import sqlite3
import subprocess
import sys
import tempfile
import time
import unittest
import urllib.parse

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/support"))
from web_programs import serving  # noqa: E402

LOGIN = {"Authorization": "Basic " + base64.b64encode(b"editor:secret").decode()}
DOWNLOAD = "/?Morvu1ToExcel.x=1"


class Shop(unittest.TestCase):
    program = None

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.made = cls.folder / "made.db"
        subprocess.run([ROOT / "site/data/make_shop.py", cls.made], check=True)

    def setUp(self):
        self.shop = pathlib.Path(shutil.copy(self.made, self.folder / "shop.db"))
        self.server = self.enterContext(
            serving(lambda port: [self.program, self.shop, ROOT / "assets", port, "secret"]))

    def ask_shop(self, statement):
        connection = sqlite3.connect(self.shop)
        try:
            rows = connection.execute(statement).fetchall()
            connection.commit()
            return rows
        finally:
            connection.close()

    def add_customers(self):
        self.ask_shop("DROP TRIGGER CustomersAreLimited")
        self.ask_shop("WITH Numbers AS (SELECT 1 AS N UNION ALL SELECT N + 1 FROM Numbers LIMIT 100000) "
                      "INSERT INTO Customers (Company, City, Country, Newsletter, Since) "
                      "SELECT 'Company ' || N, 'Oslo', 'NO', 0, '2024-01-01' FROM Numbers")

    def test_shows_the_customers_with_their_look(self):
        answer, page = self.server.get("/")
        self.assertEqual(answer.status, 200)
        self.assertIn("Records (1..20) of 400", page)
        self.assertIn("default-src 'self'", answer.headers["Content-Security-Policy"])
        for file in re.findall(r'(?:href|src)="(/assets/[^"]+)"', page):
            self.assertEqual(self.server.get(file)[0].status, 200, file)

    def test_answers_many_at_once(self):
        with concurrent.futures.ThreadPoolExecutor(10) as visitors:
            pages = list(visitors.map(lambda first: self.server.get(f"/?Morvu1CurrRecord={first}")[1], range(1, 400, 8)))
        self.assertEqual([page.count("DRLOTableTDodd") > 0 for page in pages], [True] * len(pages))

    def test_streams_the_download(self):
        answer, table = self.server.get(DOWNLOAD)
        self.assertEqual(answer.headers["Content-Type"], "application/vnd.ms-excel")
        self.assertIn("attachment", answer.headers["Content-Disposition"])
        self.assertEqual(answer.headers["Transfer-Encoding"], "chunked")
        self.assertEqual(table.count("<tr>"), 401)
        self.assertNotIn("<title>", table)

    def test_takes_no_more_memory_for_a_long_download(self):
        self.server.get(DOWNLOAD)
        before = self.memory_kib()
        self.add_customers()
        _, table = self.server.get(DOWNLOAD)
        self.assertEqual(table.count("<tr>"), 100401)
        self.assertLess((self.memory_kib() - before) * 1024, len(table) / 4)

    def test_stops_reading_for_a_visitor_who_leaves(self):
        self.add_customers()
        before = self.status_of("Threads")
        with socket.create_connection(("127.0.0.1", self.server.port)) as visitor:
            visitor.sendall(f"GET {DOWNLOAD} HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n".encode())
            self.assertTrue(visitor.recv(1000).startswith(b"HTTP/1.1 200"))
            self.assertGreater(self.status_of("Threads"), before)
        while self.status_of("Threads") > before:
            time.sleep(0.02)
        self.assertIn("Records (1..20)", self.server.get("/")[1])

    def memory_kib(self):
        return self.status_of("VmHWM")

    def status_of(self, name):
        status = pathlib.Path(f"/proc/{self.server.process.pid}/status").read_text()
        return int(re.search(rf"{name}:\s+(\d+)", status)[1])

    def test_lets_only_the_editor_edit(self):
        self.assertEqual(self.server.get("/edit")[0].status, 401)
        wrong = {"Authorization": "Basic " + base64.b64encode(b"editor:guess").decode()}
        self.assertEqual(self.server.get("/edit", wrong)[0].status, 401)
        self.assertIn("Morvu1FormAdd=1", self.server.get("/edit", LOGIN)[1])
        self.assertNotIn("Morvu1FormAdd=1", self.server.get("/", LOGIN)[1])

    def post_new_customer(self, headers):
        form = {"Morvu1FormDisplay": "formOneRec", "Morvu1FormUpdate": "Save", "Morvu1FormInsert": "1",
                "Morvu1_Form_Company": "Zwölf & Co.", "Morvu1_Form_City": "Ulm", "Morvu1_Form_Country": "DE",
                "Morvu1_Form_Since": "2024-01-31"}
        return self.server.ask("POST", "/edit", urllib.parse.urlencode(form), headers)[0]

    def added(self):
        return self.ask_shop("SELECT Company, Since FROM Customers WHERE City = 'Ulm'")

    def test_saves_what_the_editor_posts(self):
        answer = self.post_new_customer(LOGIN)
        self.assertEqual((answer.status, self.added()), (303, [("Zwölf & Co.", "2024-01-31")]))
        self.assertIn("[New record saved ok]", self.server.get(answer.headers["Location"], LOGIN)[1])
        self.assertIn("Zwölf &amp; Co.", self.server.get("/?Morvu1CurrRecord=401")[1])

    def test_saves_nothing_for_others_and_for_other_sites(self):
        self.assertEqual(self.post_new_customer({}).status, 401)
        self.assertEqual(self.post_new_customer(LOGIN | {"Sec-Fetch-Site": "cross-site"}).status, 403)
        self.assertEqual(self.added(), [])

    def test_answers_under_its_own_names_only(self):
        answer, page = self.server.get("/", {"Host": "rebound.example"})
        self.assertEqual(answer.status, 421)
        self.assertNotIn("DRLOTableTDodd", page)

    def test_is_closed_without_its_shop(self):
        self.shop.unlink()
        with serving(lambda port: [self.program, self.shop, ROOT / "assets", port, "secret"]) as server:
            answer, page = server.get("/")
        self.assertEqual(answer.status, 503)
        self.assertIn("The shop is closed", page)
        self.assertNotIn(str(self.shop), page)


if __name__ == "__main__":
    Shop.program = sys.argv[1]
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
