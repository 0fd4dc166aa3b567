#!/usr/bin/env python3
"""Pages that dralo-serve keeps and sends again: whatever changes them is seen by the very next request.

usage: kept_pages_test.py PROGRAM [TEST...]
"""

import concurrent.futures
import contextlib
import os
import pathlib
import re
import shutil
import sqlite3
import threading
import time

from served import ServeTest, run

JOURNALS = ("DELETE", "TRUNCATE", "PERSIST", "WAL")


class KeptPages(ServeTest):
    def setUp(self):
        super().setUp()
        self.sql("CREATE TABLE Goods (ID INTEGER PRIMARY KEY, Label TEXT)", "INSERT INTO Goods VALUES (1, 'tea 0'), (2, 'salt 0')")

    def number(self, server, target="/table/Goods"):
        """The one behind "tea"."""
        answer, page = server.get(target)
        self.assertEqual(answer.status, 200, page)
        return int(re.search(r"tea (\d+)", page)[1])

    def writer(self, journal):
        """A connection of another process than the server's."""
        connection = sqlite3.connect(self.database, timeout=60, isolation_level=None, check_same_thread=False)
        self.addCleanup(connection.close)
        self.assertEqual(connection.execute(f"PRAGMA journal_mode = {journal}").fetchone()[0], journal.lower())
        connection.execute("PRAGMA synchronous = OFF")
        return connection

    def bytes_read(self, server, target):
        """How many bytes the server reads from its files for one request."""
        counts = pathlib.Path("/proc") / str(server.process.pid) / "io"
        before = int(re.search(r"rchar: (\d+)", counts.read_text())[1])
        self.assertEqual(server.get(target)[0].status, 200)
        return int(re.search(r"rchar: (\d+)", counts.read_text())[1]) - before

    def make_long_table(self):
        """Larger than what SQLite keeps in memory, so that each sorted page reads all of it again."""
        self.sql("CREATE TABLE Long (A TEXT)",
                 "WITH N AS (SELECT 1 A UNION ALL SELECT A + 1 FROM N LIMIT 4000) INSERT INTO Long SELECT printf('%01000d', A) FROM N")
        return "/table/Long?Morvu1OrderByFields=1", 4_000_000

    def test_keeps_a_page(self):
        target, size = self.make_long_table()
        server = self.serve()
        for _ in range(2):
            self.assertGreater(self.bytes_read(server, target), size)
        # A page is kept for a second at most, which may be over before the next request.
        last = time.monotonic() + 60
        while self.bytes_read(server, target) > size:
            self.assertLess(time.monotonic(), last, "no page was kept")

    def test_keeps_no_page_that_can_be_edited(self):
        target, size = self.make_long_table()
        server = self.serve("--edit")
        for _ in range(5):
            self.assertGreater(self.bytes_read(server, target), size)

    def test_keeps_no_page_of_a_connection_string(self):
        target, size = self.make_long_table()
        server = self.serve(database=f"Provider=SQLite;Data Source={self.database}")
        for _ in range(5):
            self.assertGreater(self.bytes_read(server, target), size)

    def test_shows_each_change_at_once(self):
        server = self.serve()
        for journal in JOURNALS:
            writer = self.writer(journal)
            for number in range(1, 30):
                with self.subTest(journal=journal, number=number):
                    writer.execute("UPDATE Goods SET Label = 'tea ' || ? WHERE ID = 1", (number,))
                    self.assertEqual([self.number(server) for _ in range(3)], [number] * 3)
            writer.close()

    def test_shows_no_change_that_was_undone(self):
        server = self.serve()
        for journal in JOURNALS:
            writer = self.writer(journal)
            for number in range(1, 10):
                with self.subTest(journal=journal, number=number):
                    writer.execute("BEGIN IMMEDIATE")
                    writer.execute("UPDATE Goods SET Label = 'tea ' || ? WHERE ID = 1", (number,))
                    self.assertEqual(self.number(server), 0)
                    writer.execute("ROLLBACK")
                    self.assertEqual(self.number(server), 0)
            writer.close()

    def test_shows_a_change_of_a_record_that_is_referred_to(self):
        self.sql("CREATE TABLE Orders (ID INTEGER PRIMARY KEY, Good INTEGER REFERENCES Goods)", "INSERT INTO Orders VALUES (1, 1)")
        server = self.serve()
        for number in range(1, 10):
            self.sql(f"UPDATE Goods SET Label = 'tea {number}' WHERE ID = 1")
            self.assertEqual(self.number(server, "/table/Orders"), number)

    def test_shows_the_file_that_took_the_place_of_another(self):
        copies = [shutil.copy(self.database, self.folder / f"{number}.db") for number in range(1, 20)]
        shown, server = self.database, self.serve()
        with concurrent.futures.ThreadPoolExecutor(10) as visitors:
            for number, copy in enumerate(copies, 1):
                self.database = copy
                self.sql(f"UPDATE Goods SET Label = 'tea {number}' WHERE ID = 1")
                os.rename(copy, shown)
                self.assertEqual(self.number(server), number)
                self.assertEqual(list(visitors.map(lambda _: self.number(server), range(50))), [number] * 50)
        os.rename(shutil.copy(shown, self.folder / "last.db"), shown)
        self.number(server)
        for file in (pathlib.Path("/proc") / str(server.process.pid) / "fd").iterdir():
            with contextlib.suppress(FileNotFoundError):
                self.assertNotEqual(str(file.readlink()), f"{shown} (deleted)")

    def test_shows_what_chance_decides_anew(self):
        self.sql("CREATE VIEW Dice AS SELECT 1 ID, 'tea ' || abs(random()) Label",
                 "CREATE VIRTUAL TABLE Notes USING fts5(Label, content = 'Dice', content_rowid = 'ID')")
        server = self.serve()
        for target in ("/table/Dice", "/table/Notes"):
            with self.subTest(target=target):
                self.assertEqual(len({self.number(server, target) for _ in range(10)}), 10)

    def test_mixes_no_requests(self):
        self.sql("WITH N AS (SELECT 3 A UNION ALL SELECT A + 1 FROM N LIMIT 60) INSERT INTO Goods SELECT A, 'tea ' || A FROM N",
                 "UPDATE Goods SET Label = 'tea ' || ID", "CREATE TABLE More AS SELECT ID, 'tea ' || (ID + 1000) Label FROM Goods")
        server = self.serve()
        targets = [f"/table/{table}?Morvu1CurrRecord={number}" for number in (1, 26, 51) for table in ("Goods", "More")]
        for _ in range(3):
            self.assertEqual([self.number(server, target) for target in targets], [1, 1001, 26, 1026, 51, 1051])

    def test_takes_no_form_for_an_address(self):
        self.sql("WITH N AS (SELECT 3 A UNION ALL SELECT A + 1 FROM N LIMIT 60) INSERT INTO Goods SELECT A, 'tea ' || A FROM N")
        server = self.serve()
        for _ in range(3):
            for number in (26, 51):
                _, page = server.ask("POST", "/table/Goods", f"Morvu1CurrRecord={number}")
                self.assertIn(f"tea {number}&", page)
            self.assertEqual(self.number(server), 0)

    def test_mixes_no_senders(self):
        server = self.serve()
        target = "/table/Goods?Morvu1Done=u"
        for _ in range(3):
            for headers, is_told in (({}, True), ({"Sec-Fetch-Site": "cross-site"}, False), ({"Sec-Fetch-Site": "same-origin"}, True)):
                self.assertEqual("[Record saved ok]" in server.get(target, headers)[1], is_told)

    def test_reads_no_other_headers(self):
        # With --edit each page is made for its request.
        for option in ((), ("--edit",)):
            server = self.serve(*option)
            _, page = server.get("/table/Goods")
            for name in ("Accept", "Accept-Language", "Cookie", "Origin", "Referer", "User-Agent", "X-Forwarded-Host"):
                self.assertEqual(server.get("/table/Goods", {name: "other.example"})[1], page)

    def test_sends_the_head_of_a_kept_page(self):
        server = self.serve()
        for _ in range(3):
            got, page = server.get("/table/Goods")
            answer, body = server.ask("HEAD", "/table/Goods")
            self.assertEqual((answer.status, body), (got.status, ""))
            self.assertEqual(answer.headers["Content-Length"], str(len(page.encode())))

    def test_asks_who_it_is_before_a_kept_page_is_sent(self):
        file = self.folder / "users"
        file.write_text("ada:$2y$05$abcdefghijklmnopqrstuuOQiyCxlgf/oeuTqixKmWdcYUh4Hjl0a\n")
        server = self.serve("--user-file", file)
        for _ in range(3):
            self.assertEqual(server.get("/table/Goods", {"Authorization": "Basic YWRhOnNlY3JldA=="})[0].status, 200)
            self.assertEqual(server.get("/table/Goods")[0].status, 401)

    def test_lists_a_new_table_beside_a_kept_page(self):
        server = self.serve()
        self.number(server)
        self.sql("CREATE TABLE Added (A)")
        last = time.monotonic() + 60
        while "/table/Added" not in server.get("/table/Goods")[1]:
            self.assertLess(time.monotonic(), last)

    def test_shows_each_change_to_ten_at_once(self):
        server = self.serve()
        for journal in ("DELETE", "WAL"):
            with self.subTest(journal=journal):
                writer, committed, is_over = self.writer(journal), [0], threading.Event()

                def write():
                    while not is_over.is_set():
                        writer.execute("UPDATE Goods SET Label = 'tea ' || ? WHERE ID = 1", (committed[0] + 1,))
                        committed[0] += 1
                        time.sleep(0.005)

                def visit(_):
                    for _ in range(100):
                        before = committed[0]
                        self.assertGreaterEqual(self.number(server), before)

                writer.execute("UPDATE Goods SET Label = 'tea 0' WHERE ID = 1")
                with concurrent.futures.ThreadPoolExecutor(11) as people, contextlib.ExitStack() as stack:
                    stack.callback(is_over.set)
                    writing = people.submit(write)
                    list(people.map(visit, range(10)))
                    is_over.set()
                    writing.result()
                self.assertGreater(committed[0], 5)
                writer.close()


if __name__ == "__main__":
    run()
