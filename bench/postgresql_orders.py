"""Loads the benchmark's table into databases of a PostgreSQL server, one for each size: the rows of make_orders.py."""
import os
import sqlite3
import subprocess
import sys
from pathlib import Path

import make_orders

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests/support"))
from database_servers import PASSWORD, USER  # noqa: E402

SCHEMA = """
CREATE TABLE orders(
  id INTEGER PRIMARY KEY, customer_id INTEGER NOT NULL, name VARCHAR(40), product VARCHAR(80), city VARCHAR(40),
  quantity INTEGER, price DECIMAL(10,2), weight DOUBLE PRECISION, paid BOOLEAN, ordered DATE, updated TIMESTAMP,
  memo TEXT);
"""


def environment(port):
    """What clients of PostgreSQL read: libpq and psql then need only the name of the database."""
    return {**os.environ, "PGHOST": "127.0.0.1", "PGPORT": str(port), "PGUSER": USER, "PGPASSWORD": PASSWORD,
            "PGCLIENTENCODING": "UTF8", "PGSSLMODE": "disable"}


def connection_string(port, database):
    return (f'Provider=PostgreSQL;Host=127.0.0.1;Port={port};Database={database};User ID={USER};'
            f'Password="{PASSWORD}";SSL Mode=disable')


def cell(value):
    """A value in the text form of COPY."""
    if value is None:
        return "\\N"
    return str(value).replace("\\", "\\\\").replace("\t", "\\t").replace("\n", "\\n")


def load(port, folder, sizes):
    make_orders.make(folder, sizes)
    for size in sizes:
        psql = ["psql", "-X", "-q", "-v", "ON_ERROR_STOP=1", "-d"]
        subprocess.run([*psql, "postgres", "-c", f'CREATE DATABASE "{size}"'], env=environment(port), check=True)
        # Else a scan of a large table begins where another one is, and the order of the rows is never the same.
        subprocess.run([*psql, "postgres", "-c", f'ALTER DATABASE "{size}" SET synchronize_seqscans = off'],
                       env=environment(port), check=True)
        subprocess.run([*psql, size, "-c", SCHEMA], env=environment(port), check=True)
        with subprocess.Popen([*psql, size, "-c", "COPY orders FROM STDIN"], env=environment(port),
                              stdin=subprocess.PIPE, text=True, encoding="utf-8") as copy:
            for row in sqlite3.connect(os.path.join(folder, size + ".db")).execute("SELECT * FROM orders"):
                copy.stdin.write("\t".join(map(cell, row)) + "\n")
        if copy.returncode:
            sys.exit(f"the table of {size} rows was not loaded")
        subprocess.run([*psql, size, "-c", "CREATE INDEX orders_customer ON orders(customer_id)", "-c",
                        "VACUUM ANALYZE orders"], env=environment(port), check=True)
