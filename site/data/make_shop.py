#!/usr/bin/python3 -B
"""Makes the database of the example shop: make_shop.py FILE

Always makes the same shop: neither the clock nor any other source of chance is read. An existing FILE is replaced once
the new one is complete.
"""

import datetime
import os
import random
import sqlite3
import sys
from pathlib import Path

import goods
import notes
import pictures
from places import COUNTRIES, LOCALES

CUSTOMERS = 400
ORDERS = 3000
FIRST_DAY = datetime.date(2022, 1, 3)  # of the orders, a Monday
TODAY = datetime.date(2026, 6, 30)  # of the shop; later things have not happened yet


class Chance:
    """A sequence of choices that is the same in every run and for every version of Python."""

    def __init__(self, seed):
        self._random = random.Random(seed)

    def happens(self, share):
        return self._random.random() < share

    def between(self, low, high):
        """A whole number from low to high, both included."""
        return low + int(self._random.random() * (high - low + 1))

    def price(self, low, high):
        """An amount that ends in .00, .50, .90 or .95, low amounts being more frequent."""
        amount = int(low + (high - low) * self._random.random() ** 2)
        return amount + self.one_of([0, 0.5, 0.9, 0.95])

    def one_of(self, items):
        return items[self.between(0, len(items) - 1)]

    def text_of(self, sentences, most):
        """One to `most` different sentences."""
        left = list(sentences)
        return " ".join(left.pop(self.between(0, len(left) - 1)) for _ in range(self.between(1, most)))

    def fill(self, pattern):
        """The pattern with other digits for its 9s and other letters for its As."""
        return "".join(
            str(self.between(0, 9)) if mark == "9" else self.one_of("BDEHLNPRSTX") if mark == "A" else mark
            for mark in pattern
        )


def rows_of_countries():
    for code, values in COUNTRIES.items():
        yield (code, *values)


def rows_of_categories():
    for number, (name, description, *_) in enumerate(goods.CATEGORIES, 1):
        yield (number, name, description)


def rows_of_employees(chance):
    for number, (given, family, title, boss) in enumerate(goods.EMPLOYEES, 1):
        born = datetime.date(chance.between(1961, 2004), chance.between(1, 12), chance.between(1, 28))
        hired = datetime.date(max(2011, born.year + chance.between(19, 40)), chance.between(1, 12), 1)
        hired = min(hired, datetime.date(2026, 2, 1))
        yield (
            number, given, family, title, boss or None,
            None if number % 9 == 0 else born.isoformat(),
            hired.isoformat(),
            None if boss == 0 else f"{chance.between(6, 9):02}:{chance.one_of([0, 15, 30, 45]):02}:00",
            None if boss == 0 else chance.between(280, 620) * 100,
            not chance.happens(0.25),
            "" if number % 11 == 0 else f"staff{number:02}@example.com",
            pictures.tile(pictures.person, number * 0.618 % 1),
            chance.text_of(notes.EMPLOYEE, 3) if chance.happens(0.8) else None,
        )  # fmt: skip


def last_visit(chance, since):
    if chance.happens(0.12):
        return None
    day = since + datetime.timedelta(days=chance.between(0, (TODAY - since).days))
    if chance.happens(0.15):
        return f"{day} 00:00:00"
    return f"{day} {chance.between(7, 22):02}:{chance.between(0, 59):02}:{chance.between(0, 59):02}"


def customer_notes(chance, number, code):
    if number == 17:
        return notes.LETTER * 12
    if chance.happens(0.4):
        return None
    if chance.happens(0.1):
        return ""
    own_words = notes.OWN_WORDS.get(code, "")
    return (own_words + " " + chance.text_of(notes.CUSTOMER, 5)).lstrip()


def rows_of_customers(chance):
    codes = sorted(LOCALES)
    for number in range(1, CUSTOMERS + 1):
        code = chance.one_of(codes)
        locale = LOCALES[code]
        given, family = chance.one_of(locale.given), chance.one_of(locale.family)
        town, postal_code = chance.one_of(locale.towns)
        country_code, phone = locale.phone.split(" ", 1)
        since = FIRST_DAY + datetime.timedelta(days=chance.between(-3000, 1400))
        yield (
            number,
            chance.one_of(locale.firms).format(given=given, family=family, town=town),
            None if chance.happens(0.08) else locale.full.format(given=given, family=family),
            locale.street.format(street=chance.one_of(locale.streets), number=chance.between(1, 140)),
            chance.fill(postal_code) if code != "IS" else postal_code,
            town,
            code,
            "" if chance.happens(0.1) else f"{country_code} {chance.fill(phone)}",
            None if chance.happens(0.15) else f"customer{number:03}@example.{chance.one_of(['com', 'net', 'org'])}",
            None if chance.happens(0.2) else chance.between(2, 80) * 250,
            chance.happens(0.45),
            since.isoformat(),
            last_visit(chance, since),
            customer_notes(chance, number, code),
        )  # fmt: skip


def rows_of_products(chance):
    number = 0
    for category, (_, _, unit, lowest, highest, weight, names) in enumerate(goods.CATEGORIES, 1):
        for name in names.split("|"):
            number += 1
            hue = (category * 0.127 + number * 0.009) % 1
            yield (
                number, category, name, unit, chance.price(lowest, highest),
                None if chance.happens(0.1) else round(weight * chance.between(6, 18) / 10, 3),
                0 if chance.happens(0.06) else chance.between(1, 240),
                None if chance.happens(0.2) else chance.between(1, 6) * 5,
                chance.happens(0.08),
                f"{chance.between(2011, 2025)}-{chance.between(1, 12):02}-{chance.between(1, 28):02}",
                None if chance.happens(0.1) else chance.text_of(notes.PRODUCT, 4),
                pictures.tile(pictures.FIGURES[category - 1], hue),
            )  # fmt: skip


def rows_of_orders(chance):
    days = (TODAY - FIRST_DAY).days
    for number in range(1, ORDERS + 1):
        day = FIRST_DAY + datetime.timedelta(days=number * days // ORDERS)
        shipped = day + datetime.timedelta(days=chance.between(0, 9))
        time = f"{chance.between(6, 23):02}:{chance.between(0, 59):02}:{chance.between(0, 59):02}"
        yield (
            number,
            chance.between(1, CUSTOMERS),
            None if chance.happens(0.1) else chance.between(7, 16),
            f"{day} {'00:00:00' if chance.happens(0.08) else time}",
            shipped.isoformat() if shipped <= TODAY and not chance.happens(0.01) else None,
            chance.between(0, 390) / 10,
            shipped <= TODAY and not chance.happens(0.04),
            chance.text_of(notes.ORDER, 2) if chance.happens(0.15) else None,
        )  # fmt: skip


def rows_of_order_lines(chance, products):
    for order in range(1, ORDERS + 1):
        for line in range(1, chance.between(1, 5) + 1):
            product = chance.one_of(products)
            discount = chance.one_of([0.05, 0.1, 0.15, 0.25]) if chance.happens(0.15) else None
            yield (order, line, product[0], chance.between(1, 24), product[4], discount)


def rows_of_reminders(chance):
    for number, task in enumerate(notes.REMINDER, 1):
        due = TODAY + datetime.timedelta(days=chance.between(-10, 60))
        yield (
            number, task,
            None if chance.happens(0.2) else due.isoformat(),
            None if chance.happens(0.3) else chance.between(7, 16),
            None if chance.happens(0.3) else chance.between(1, 32) / 4,
            chance.happens(0.3),
        )  # fmt: skip


def fill(database):
    def insert(table, rows):
        rows = list(rows)
        database.executemany(f"INSERT INTO {table} VALUES ({', '.join('?' * len(rows[0]))})", rows)
        return rows

    insert("Countries", rows_of_countries())
    insert("Categories", rows_of_categories())
    insert("Employees", rows_of_employees(Chance(1)))
    insert("Customers", rows_of_customers(Chance(2)))
    products = insert("Products", rows_of_products(Chance(3)))
    insert("Orders", rows_of_orders(Chance(4)))
    insert("OrderLines", rows_of_order_lines(Chance(5), products))
    insert("Reminders", rows_of_reminders(Chance(6)))


def main(path):
    path.parent.mkdir(parents=True, exist_ok=True)
    unfinished = path.with_name(path.name + ".unfinished")
    unfinished.unlink(missing_ok=True)
    database = sqlite3.connect(unfinished)
    database.executescript(Path(__file__).with_name("schema.sql").read_text(encoding="utf-8"))
    with database:
        fill(database)
    database.execute("ANALYZE")
    database.close()
    os.replace(unfinished, path)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit("usage: make_shop.py FILE")
    main(Path(sys.argv[1]))
