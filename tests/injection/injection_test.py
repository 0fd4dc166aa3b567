"""What sqlmap gets out of a page by SQL that it puts into requests: everything of a plain page, nothing of a hardened one.

usage: injection_test.py EXTENSION
"""

import contextlib
import os
import pathlib
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).parent
sys.path.append(str(HERE.parent / "support"))

from php_programs import php_program  # noqa: E402
from web_programs import serving  # noqa: E402

SECRET = "hush-hush"
TIME_LIMIT_S = 900
RECORD = "Morvu1FormDisplay=formOneRec&Morvu1PK=1"
ALL_KEYS = ("Morvu1PK=1&Morvu1OrderByFields=1&Morvu1OrderByDesc=1&Morvu1CurrRecord=1&Morvu1maxrecords=20&Morvu1CountRecords=on"
            "&Morvu1BookMark=1&Morvu1SQL=SELECT+ID+FROM+Notes&Morvu1FormDisplay=formOneRec")
SAVE = "Morvu1FormDisplay=formOneRec&Morvu1FormUpdate=Save&Morvu1PK=1&Morvu1_Form_ID=1&Morvu1_Form_Title=x&Morvu1_Form_Body=y"


class AnAttack(unittest.TestCase):
    extension = ""

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="injection-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.database = self.folder / "notes.db"
        with contextlib.closing(sqlite3.connect(self.database)) as database, database:
            database.execute("CREATE TABLE Notes (ID INTEGER PRIMARY KEY, Title VARCHAR(40), Body TEXT, Owner INTEGER)")
            database.execute("INSERT INTO Notes VALUES (1, 'One', 'a', 7), (2, 'Two', 'b', 7), (3, 'Three', 'c', 8)")
            database.execute("CREATE TABLE Secrets (ID INTEGER PRIMARY KEY, Word VARCHAR(40))")
            database.execute("INSERT INTO Secrets VALUES (1, ?)", (SECRET,))
        os.environ["DRALO_NOTES"] = str(self.database)

    def attack(self, is_hardened, query="", *options):
        """What sqlmap says that tries the keys of the query, and the form of its options."""
        def command(port):
            return [php_program("php"), "-n", "-d", f"extension={self.extension}", "-d", f"dralo.hardened={int(is_hardened)}",
                    "-d", "error_log=/dev/null", "-S", f"127.0.0.1:{port}", HERE / "notes.php"]
        with serving(command) as server:
            run = subprocess.run(["sqlmap", "--batch", "--flush-session", "--disable-coloring", "--dbms=SQLite",
                                  f"--output-dir={self.folder / 'found'}", "-T", "Secrets", "--dump",
                                  "-u", f"http://127.0.0.1:{server.port}/notes.php?{query}",
                                  "-H", "Sec-Fetch-Site: same-origin", *options],
                                 env=os.environ | {"HOME": str(self.folder)}, stdin=subprocess.DEVNULL, text=True,
                                 stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=TIME_LIMIT_S, check=False)
        return run.stdout

    def assert_finds_nothing(self, said):
        self.assertIn("all tested parameters do not appear to be injectable", said)
        self.assertNotIn("is vulnerable", said)
        self.assertNotIn(SECRET, said)

    def notes(self):
        with contextlib.closing(sqlite3.connect(self.database)) as database:
            return database.execute("SELECT * FROM Notes").fetchall()

    def test_finds_its_way_from_the_key_of_a_plain_page_to_another_table(self):
        attack = RECORD, "-p", "Morvu1PK", "--technique=BU"
        self.assertIn(SECRET, self.attack(False, *attack))
        self.assert_finds_nothing(self.attack(True, *attack))

    def test_finds_nothing_in_any_key_of_a_hardened_page(self):
        attack = ALL_KEYS, "--technique=BEU", "--level=2"
        self.assertIn("is vulnerable", self.attack(False, *attack))
        self.assert_finds_nothing(self.attack(True, *attack))

    def test_changes_nothing_by_what_it_posts_to_a_hardened_page(self):
        attack = "", "--data", SAVE, "--technique=BEU", "--level=2"
        before = self.notes()
        self.assert_finds_nothing(self.attack(True, *attack))
        self.assertEqual(self.notes(), before)
        self.attack(False, *attack)
        self.assertNotEqual(self.notes(), before)


if __name__ == "__main__":
    AnAttack.extension = sys.argv.pop(1)
    unittest.main()
