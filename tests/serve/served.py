"""What the tests of dralo-serve have in common: a database, the program over it, and the forms of its pages."""

import html.parser
import pathlib
import sqlite3
import sys
import tempfile
import unittest
import urllib.parse

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/support"))
from web_programs import serving  # noqa: E402


def quoted(name):
    return '"' + name.replace('"', '""') + '"'


class Form(html.parser.HTMLParser):
    """The view's form as a browser would post it; `controls` are its fields, buttons aside."""

    def __init__(self, page):
        super().__init__()
        self.controls = {}
        self.buttons = {}
        self.select = None
        self.area = None
        self.feed(page)

    def handle_starttag(self, tag, attributes):
        given = dict(attributes)
        name, value = given.get("name"), given.get("value") or ""
        if tag == "select":
            self.select = name
        elif tag == "option" and self.select:
            if "selected" in given or self.select not in self.controls:
                self.controls[self.select] = value
        elif tag == "textarea":
            self.area = name
            self.controls[name] = ""
        elif tag == "input" and given.get("type") == "submit":
            self.buttons[value] = name
        elif tag == "input" and name and "disabled" not in given and given.get("type") != "image":
            if given.get("type") != "checkbox" or "checked" in given:
                self.controls[name] = value

    def handle_endtag(self, tag):
        if tag == "select":
            self.select = None
        elif tag == "textarea":
            self.area = None

    def handle_data(self, text):
        if self.area:
            self.controls[self.area] += text


class ServeTest(unittest.TestCase):
    """`self.database` is a new SQLite file, made by `self.sql()`; `self.serve()` shows it."""

    program = None

    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="dralo-serve-")))
        self.database = self.folder / "test.db"
        self.sql()

    def sql(self, *statements):
        """The rows of the last statement."""
        connection = sqlite3.connect(self.database)
        try:
            connection.execute("PRAGMA user_version = 1")
            rows = [connection.execute(statement).fetchall() for statement in statements]
            connection.commit()
            return rows[-1] if rows else []
        finally:
            connection.close()

    def serve(self, *options, database=None):
        return self.enterContext(serving(
            lambda port: [self.program, database or self.database, "--port", port, *options]))

    def save(self, server, address, **values):
        """Types into the form at the address and presses Save. Fields are named as columns."""
        return self.press(server, address, "Save", values)

    def press(self, server, address, button, values=None):
        _, page = server.get(address)
        form = Form(page)
        self.assertIn(button, form.buttons, page)
        typed = {f"Morvu1_Form_{name}": value for name, value in (values or {}).items()}
        self.assertLessEqual(typed.keys(), form.controls.keys())
        body = urllib.parse.urlencode(form.controls | typed | {form.buttons[button]: button})
        return server.ask("POST", address.split("?")[0], body)


def run():
    ServeTest.program = sys.argv.pop(1)
    unittest.main(module="__main__")
