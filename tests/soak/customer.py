"""A customer who asks for pages of every kind, looks at each answer and knows what the database has to hold."""

import random
import time
import urllib.parse

import fastcgi

GOODS = 45
COMPLETE = b"<p id=\"error\"></p>\n<!-- complete -->"
END = b"</p>\n<!-- complete -->"
WORDS = ["&", "=", "%", "+", "Morvu1", "CurrRecord", "maxrecords", "FormDisplay", "formOneRec", "PK", "FormEdit", "FormAdd",
         "OrderByFields", "OrderByDesc", "BookMark", "SQL", "%00", "%ff", "[", "]", ".x", ";", "'", "\"", "NEXT.x", "LAST.x",
         "1", "-9", "99999999999999999999", "1e9", "%F0%9F", "%F0%9F%8E%BB", "x" * 300, "' OR 1=1 --",
         "SELECT 1", "SELECT * FROM Nothing"]


class Customer:
    """Owns some of the goods, which nobody else changes. What was not as it should be stands in `failures`, as
    (start, end, what). `marks` are the marks of all goods at the beginning."""

    def __init__(self, workers, number, number_of_customers, marks):
        self.workers = workers
        self.number = number
        self.random = random.Random(number)
        self.goods = range(number + 1, GOODS + 1, number_of_customers)
        self.made = 0
        self.failures = []
        # By the number of a good: the marks that it may have, one as long as no answer got lost.
        self.marks = {good: {marks[good]} for good in self.goods}
        self.added = {}  # By the number of a good: whether it is surely there.
        kinds = {self.list: 25, self.turn: 10, self.sort: 12, self.record: 12, self.edit: 8, self.save: 10, self.save_in_vain: 6,
                 self.add: 4, self.delete: 4, self.download: 3, self.leave: 1, self.disturb: 5}
        self.kinds = list(kinds)
        self.weights = list(kinds.values())

    def act(self):
        self.random.choices(self.kinds, self.weights)[0]()

    def ask(self, query="", form=None, expected=(COMPLETE,)):
        """Whether the answer holds all that is expected."""
        body = None if form is None else urllib.parse.urlencode(form).encode()
        start = time.monotonic()
        try:
            request = fastcgi.Request(self.workers.socket, self.workers.params(query.encode(), body), body or b"")
            try:
                answer = request.read()
            finally:
                request.leave()
        except OSError as error:
            answer = repr(error).encode()
        if all(part in answer for part in expected) and not answer.startswith(b"Status: "):
            return True
        self.failures.append((start, time.monotonic(), f"{query} {form}"[:400] + f": no {expected} in ...{answer[-600:]!r}"))
        return False

    # Pages

    def list(self):
        self.ask(f"Morvu1CurrRecord={self.random.randrange(1, 50)}&Morvu1maxrecords={self.random.choice([5, 10, 20])}",
                 expected=(COMPLETE, b'<td id="drl1cell_1_1"'))

    def turn(self):
        """The last page can be empty when somebody deletes its only good after the goods were counted."""
        button = self.random.choice(["NEXT", "PREV", "FIRST", "LAST"])
        self.ask(form={"Morvu1CurrRecord": self.random.randrange(1, 46), "Morvu1CountRecords": "on", "Morvu1maxrecords": 10,
                       f"Morvu1{button}.x": 3, "search": "något"},
                 expected=(COMPLETE, b" of " if button == "LAST" else b'<td id="drl1cell_1_1"'))

    def sort(self):
        descending = self.random.choice(["", "&Morvu1OrderByDesc=True"])
        self.ask(f"Morvu1OrderByFields={self.random.randrange(1, 8)}{descending}", expected=(COMPLETE, b'id="drl1row_20"'))

    def record(self):
        good = self.random.randrange(1, GOODS + 1)
        self.ask(f"Morvu1FormDisplay=formOneRec&Morvu1PK={good}", expected=(COMPLETE, b"</th><td>%d</td>" % good))

    def edit(self):
        good = self.random.randrange(1, GOODS + 1)
        self.ask(form=self.state(good) | {"Morvu1FormEdit": "Edit"}, expected=(COMPLETE, b'value="%d"' % good, b"Deutschland"))

    def download(self):
        self.ask(form={"Morvu1ToExcel.x": 1}, expected=(b"application/vnd.ms-excel", b"<table>", b"</table>"))

    def leave(self):
        """Goes away before the answer."""
        form = b"Morvu1ToExcel.x=1" if self.random.random() < 0.5 else None
        fastcgi.Request(self.workers.socket, self.workers.params(b"Morvu1maxrecords=1000", form), form or b"").leave()

    def disturb(self):
        """Asks for anything. What comes is a page, with or without a message."""
        text = "".join(self.random.choices(WORDS, k=self.random.randrange(1, 40)))
        pairs = [("Morvu1" + self.random.choice(WORDS), self.random.choice(WORDS)) for _ in range(self.random.randrange(4))]
        self.ask(text.replace(" ", "+").replace("\"", "%22"), dict(pairs), expected=(END,))

    # Saves

    def state(self, good):
        return {"Morvu1FormDisplay": "formOneRec", "Morvu1PK": good, "Morvu1CurrRecord": 1, "Morvu1maxrecords": 20}

    def values(self, good):
        self.made += 1
        mark = self.number * 10_000_000 + self.made
        values = {"ID": good, "Name": f"{self.random.choice('aåß🎻')} {mark}", "Price": f"{self.random.randrange(10_000)}.50",
                  "Stock": self.random.randrange(100), "Born": f"2/{self.random.randrange(1, 29)}/2024",
                  "Seen": self.random.choice(["", "3/1/2024 1:05:06 PM"]), "Country": self.random.choice(["", "no", "at"]),
                  "Big": mark, "Note": "ä<b>&\"\r\n" * self.random.choice([0, 1, 1000])}
        if self.random.random() < 0.5:
            values["Active"] = "on"
        return mark, {f"Morvu1_Form_{name}": value for name, value in values.items()}

    def save(self):
        good = self.random.choice(self.goods)
        mark, values = self.values(good)
        if self.ask(form=self.state(good) | {"Morvu1FormUpdate": "Save"} | values, expected=(COMPLETE, b"[Record saved ok]")):
            self.marks[good] = {mark}
        else:
            self.marks[good].add(mark)

    def save_in_vain(self):
        good = self.random.choice(self.goods)
        _, values = self.values(good)
        name, value, message = self.random.choice([
            ("Name", "", b"Record WAS NOT SAVED"), ("Stock", "many", b"many is not a number"),
            ("Price", "much", b"much is not a number"), ("ID", "999", b"There is no record with the posted key")])
        values[f"Morvu1_Form_{name}"] = value
        self.ask(form=self.state(good) | {"Morvu1FormUpdate": "Save"} | values, expected=(END, message))

    def add(self):
        good = (self.number + 1) * 1_000_000 + self.made
        _, values = self.values(good)
        buttons = {"Morvu1FormDisplay": "formOneRec", "Morvu1FormUpdate": "Save", "Morvu1FormInsert": 1}
        self.added[good] = self.ask(form=buttons | values, expected=(COMPLETE, b"[New record saved ok]"))

    def delete(self):
        if not self.added:
            return self.add()
        good = self.random.choice(list(self.added))
        # Whose save was not answered may not be there: then the page says so.
        complete = COMPLETE if self.added[good] else END
        if self.ask(form={"Morvu1FormDisplay": "formOneRec", "Morvu1FormDelete": "Delete", "Morvu1_Form_ID": good},
                    expected=(complete, b"[Record deleted]")):
            del self.added[good]
        else:
            self.added[good] = False
        return None

    def differences(self, marks):
        """What the database should not hold, or should. `marks` are the marks by numbers of goods, of all customers."""
        for good, possible in self.marks.items():
            if marks[good] not in possible:
                yield f"good {good} has the mark {marks[good]}, not one of {possible}"
        for good, is_sure in self.added.items():
            if is_sure and good not in marks:
                yield f"the added good {good} is missing"
        for good in marks:
            if good // 1_000_000 == self.number + 1 and good not in self.added:
                yield f"the deleted good {good} is there"
