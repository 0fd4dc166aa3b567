#!/usr/bin/env python3
"""Makes the benchmark's databases: a table "orders" of twelve typed columns with the given number of rows, a few Nulls
and memos of up to 400 characters. The same rows every time.

    bench/make_orders.py FOLDER [SIZE...]    makes FOLDER/SIZE.db unless it is there; without sizes 1k and 100k
"""
import os
import random
import sqlite3
import sys

SIZES = {"1k": 1_000, "10k": 10_000, "100k": 100_000, "1m": 1_000_000}
SCHEMA = """
CREATE TABLE orders(
  id INTEGER PRIMARY KEY, customer_id INTEGER NOT NULL, name VARCHAR(40), product VARCHAR(80), city VARCHAR(40),
  quantity INTEGER, price DECIMAL(10,2), weight DOUBLE, paid BOOLEAN, ordered DATE, updated DATETIME, memo TEXT);
CREATE INDEX orders_customer ON orders(customer_id);
"""
NAMES = "Amélie Bruno Chiara Dmitri Elif Frode Greta Hana Igor Jana Łucja Mateo Ngozi Oskar Petra Søren".split()
CITIES = "Aarhus Bergen Brno Cork Dresden Évora Gdańsk Graz Kyoto Lyon Malmö Porto Siena Tartu Ulm Zürich".split()
WORDS = ("deliver before noon and ring twice; leave with the neighbours if nobody is at home, sign the slip & keep the "
         "copy, the box is <fragile> and must stay upright").split()


def memo(draw):
    wanted, words, size = draw.randrange(401), [], 0
    while size < wanted:
        words.append(draw.choice(WORDS))
        size += len(words[-1]) + 1
    return " ".join(words)[:wanted]


def rows(count):
    draw = random.Random(7)

    def or_null(share, value):
        return None if draw.random() < share else value

    for number in range(1, count + 1):
        day = f"{draw.randrange(2012, 2026)}-{draw.randrange(1, 13):02}-{draw.randrange(1, 29):02}"
        time = f"{draw.randrange(24):02}:{draw.randrange(60):02}:{draw.randrange(60):02}"
        yield (number, draw.randrange(1, 1 + max(100, count // 100)),
               or_null(.02, f"{draw.choice(NAMES)} {draw.choice(NAMES)}sen"),
               or_null(.03, f"{draw.choice(WORDS)} size {draw.randrange(500)} type {draw.choice(WORDS)}"),
               or_null(.05, draw.choice(CITIES)), or_null(.02, draw.randrange(1000)),
               or_null(.02, draw.randrange(10_000_000) / 100), or_null(.1, draw.randrange(10**7) / 10**4),
               or_null(.05, draw.randrange(2)), or_null(.02, day), or_null(.1, f"{day} {time}"),
               or_null(.15, memo(draw)))


def build(path, count):
    unfinished = path + ".unfinished"
    if os.path.exists(unfinished):
        os.remove(unfinished)
    database = sqlite3.connect(unfinished)
    database.executescript("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;" + SCHEMA)
    database.executemany("INSERT INTO orders VALUES(?,?,?,?,?,?,?,?,?,?,?,?)", rows(count))
    database.commit()
    database.close()
    os.replace(unfinished, path)


def make(folder, sizes=("1k", "100k")):
    os.makedirs(folder, exist_ok=True)
    for name in sizes:
        path = os.path.join(folder, name + ".db")
        if not os.path.exists(path):
            build(path, SIZES[name])


if __name__ == "__main__":
    make(sys.argv[1], *([sys.argv[2:]] if sys.argv[2:] else []))
