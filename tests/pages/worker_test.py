"""A server that answers many requests with one script: nothing of a request is left for the next one.

usage: worker_test.py WORKER EXTENSION
"""

import os
import pathlib
import sqlite3
import subprocess
import sys
import tempfile

EXPECTED = """3..4 2 rows
7..8 2 rows
1..2 2 rows
5..6 2 rows
The page of this object has ended
The page of this object has ended
free
9..10 2 rows
"""


def main(worker, extension):
    with tempfile.TemporaryDirectory() as folder:
        shop = pathlib.Path(folder) / "shop.db"
        with sqlite3.connect(shop) as database:
            database.execute("CREATE TABLE Customers (ID INTEGER PRIMARY KEY, Company VARCHAR(40))")
            database.executemany("INSERT INTO Customers VALUES (?, 'Company')", [(number,) for number in range(1, 21)])
        database.close()
        settings = pathlib.Path(folder) / "php.ini"
        settings.write_text(f"extension={extension}\n")
        script = pathlib.Path(__file__).parent / "embedded/worker.php"
        process = subprocess.run([worker, settings, script], env=os.environ | {"DRALO_SHOP": str(shop)}, timeout=100,
                                 capture_output=True, encoding="utf-8", check=False)  # fmt: skip
    lines = [line.rstrip() for line in process.stdout.splitlines()]
    if process.returncode == 0 and lines == EXPECTED.splitlines():
        return 0
    print(f"the worker ended with {process.returncode} and printed\n{process.stdout}\nand not\n{EXPECTED}\n{process.stderr}")
    return 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
