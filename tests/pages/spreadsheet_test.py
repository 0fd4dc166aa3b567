"""The spreadsheet that a page sends: a spreadsheet program reads the same values out of it, and its length does not
matter for the memory of the process that writes it.

usage: spreadsheet_test.py PHP_CGI EXTENSION SOFFICE
"""

import csv
import os
import pathlib
import re
import sqlite3
import subprocess
import sys
import tempfile
import unittest

PAGE = """<?php
register_shutdown_function(fn() => copy('/proc/self/status', __DIR__ . '/status'));
$view = new Dralo\\DbView();
$view->ConnectionString = 'Provider=SQLite;Mode=Read;Data Source=' . __DIR__ . '/data.db';
$view->sql = 'SELECT * FROM Data';
%s
$view->WriteHtmlTable();
echo $view->ErrorMessage;
"""
# Makes readers take the file as UTF-8 wherever the first letter beyond ASCII stands.
HINT = """$view->GridColHeadAttributes[1] = '><meta charset="utf-8"';"""
# Columns by commas, texts in quotes, in UTF-8, cells as they are shown.
AS_CSV = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true"
MAKE_NUMBERS = """
CREATE TABLE Data (ID INTEGER PRIMARY KEY, Name VARCHAR(80));
WITH RECURSIVE n(N) AS (SELECT 1 UNION ALL SELECT N + 1 FROM n WHERE N < {})
INSERT INTO Data SELECT N, 'a name of some length ' || N FROM n;
"""


class ASpreadsheet(unittest.TestCase):
    arguments = []

    def setUp(self):
        self.temporary = tempfile.TemporaryDirectory()
        self.addCleanup(self.temporary.cleanup)
        self.folder = pathlib.Path(self.temporary.name)

    def make_data(self, script, rows=()):
        """A new table Data; every row has as many values as the first."""
        path = self.folder / "data.db"
        path.unlink(missing_ok=True)
        database = sqlite3.connect(path)
        database.executescript(script)
        if rows:
            database.executemany(f"INSERT INTO Data VALUES ({','.join('?' * len(rows[0]))})", rows)
        database.commit()
        database.close()

    def download(self, settings=""):
        """Writes the download without its headers to a file; returns it and the highest memory of PHP in KiB."""
        php_cgi, extension, _ = self.arguments
        (self.folder / "page.php").write_text(PAGE % settings, encoding="utf-8")
        request = {"REDIRECT_STATUS": "200", "SCRIPT_FILENAME": str(self.folder / "page.php"), "SCRIPT_NAME": "/page.php",
                   "REQUEST_METHOD": "GET", "QUERY_STRING": "Morvu1ToExcel.x=1", "LC_ALL": "C.UTF-8"}
        answer, table = self.folder / "answer", self.folder / "DraloExcelExport.xls"
        command = [php_cgi, "-n", "-d", f"extension={extension}", "-d", "output_buffering=4096"]
        with open(answer, "wb") as output:
            subprocess.run(command, stdout=output, env=os.environ | request, timeout=120, check=True)
        table.write_bytes(answer.read_bytes().partition(b"\r\n\r\n")[2])
        self.assertTrue(table.read_bytes().startswith(b"<table>\r\n"))
        peak = re.search(r"VmHWM:\s*(\d+)", (self.folder / "status").read_text())
        return table, int(peak[1])

    def cells(self, table):
        """The rows as the spreadsheet program shows them."""
        soffice = self.arguments[2]
        subprocess.run([soffice, f"-env:UserInstallation=file://{self.folder}/profile", "--headless", "--convert-to", AS_CSV,
                        "--outdir", self.folder, table], check=True, capture_output=True, timeout=120)
        with open(table.with_suffix(".csv"), encoding="utf-8", newline="") as file:
            return list(csv.reader(file))

    def test_is_read_with_all_its_values(self):
        self.make_data(
            "CREATE TABLE Data (ID INTEGER PRIMARY KEY, Name VARCHAR(40), Price DECIMAL(9,2), Paid BOOLEAN, Day DATE, At DATETIME)",
            [(1, "Müller & Søn", 12.5, 1, "2024-05-06", "2024-05-06 07:08:09"),
             (2, "Łódź, Ωμέγα, Иван", -3, 0, None, None),
             (3, "東京 🎈 عربى", None, None, "1999-12-31", "1999-12-31 23:59:59"),
             (4, "<b>bold</b> &lt;text&gt;", 1234567.89, 1, "2000-02-29", "2000-02-29"),
             (5, None, 0, 0, None, None)])
        table, _ = self.download()
        self.assertEqual(self.cells(table), [
            ["ID", "Name", "Price", "Paid", "Day", "At"],
            ["1", "Müller & Søn", "12.5", "True", "5/6/2024", "5/6/2024 7:08:09 AM"],
            ["2", "Łódź, Ωμέγα, Иван", "-3", "False", "", ""],
            ["3", "東京 🎈 عربى", "", "", "12/31/1999", "12/31/1999 11:59:59 PM"],
            ["4", "bold <text>", "1234567.89", "True", "2/29/2000", "2/29/2000"],
            ["5", "", "0", "False", "", ""]])

    def test_is_read_as_utf_8_with_the_hint_also_when_it_is_plain_for_long(self):
        names = ["plain"] * 20_000 + ["Zürich Łódź 東京"]
        self.make_data("CREATE TABLE Data (ID INTEGER PRIMARY KEY, Name VARCHAR(40))", list(enumerate(names, 1)))
        table, _ = self.download(HINT)
        rows = self.cells(table)
        self.assertEqual(rows[0], ["ID", "Name"])
        self.assertEqual(rows[-1], ["20001", "Zürich Łódź 東京"])
        self.assertEqual(len(rows), 20_002)

    def test_takes_no_more_memory_when_it_is_longer(self):
        peaks = []
        for rows in (10_000, 200_000):
            self.make_data(MAKE_NUMBERS.format(rows))
            table, peak = self.download()
            self.assertEqual(table.read_bytes().count(b"</tr>"), rows + 1)
            peaks.append(peak)
        # The database's own cache fills up to 2 MiB; the longer file has 34 MB.
        self.assertLess(peaks[1] - peaks[0], 3 * 1024, f"{peaks} KiB")


if __name__ == "__main__":
    ASpreadsheet.arguments = sys.argv[1:4]
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
