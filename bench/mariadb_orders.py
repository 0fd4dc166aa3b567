"""Loads the benchmark's table into databases of a MariaDB server, one for each size: the rows of make_orders.py."""
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
  quantity INTEGER, price DECIMAL(10,2), weight DOUBLE, paid BIT(1), ordered DATE, updated DATETIME, memo TEXT);
"""
LOAD = """
LOAD DATA LOCAL INFILE '/dev/stdin' INTO TABLE orders
  (id, customer_id, name, product, city, quantity, price, weight, @paid, ordered, updated, memo)
  SET paid = @paid + 0;
CREATE INDEX orders_customer ON orders(customer_id);
ANALYZE TABLE orders;
"""


def client(port, *more):
    return ["mariadb", "--no-defaults", "--host=127.0.0.1", f"--port={port}", f"--user={USER}", f"--password={PASSWORD}",
            "--default-character-set=utf8mb4", *more]


def connection_string(port, database):
    return f'Provider=MariaDB;Host=127.0.0.1;Port={port};Database={database};User ID={USER};Password="{PASSWORD}"'


def cell(value):
    """A value in the text form of LOAD DATA."""
    if value is None:
        return "\\N"
    return str(value).replace("\\", "\\\\").replace("\t", "\\t").replace("\n", "\\n")


def load(port, folder, sizes):
    make_orders.make(folder, sizes)
    for size in sizes:
        subprocess.run(client(port, "-e", f"CREATE DATABASE `{size}`; USE `{size}`; {SCHEMA}"), check=True)
        with subprocess.Popen(client(port, "--local-infile", size, "-e", LOAD), stdin=subprocess.PIPE, text=True,
                              stdout=subprocess.DEVNULL, encoding="utf-8") as loading:
            for row in sqlite3.connect(os.path.join(folder, size + ".db")).execute("SELECT * FROM orders"):
                loading.stdin.write("\t".join(map(cell, row)) + "\n")
        if loading.returncode:
            sys.exit(f"the table of {size} rows was not loaded")
