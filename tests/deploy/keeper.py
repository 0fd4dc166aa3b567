"""A visitor who keeps the articles of one owner: pages, sorts, adds, changes and deletes, and knows all the while what a page
has to show."""

import contextlib
import http.client
import random
import re
import urllib.parse

import deployed_site  # noqa: F401  finds the modules of the other tests
from visitor import Visitor

PAGE_SIZE = 8
MOST_LOSSES = 1000  # Whoever loses more will not get an answer any more.
COLUMNS = {"ID": 0, "1": 0, "2": 1, "3": 2}


class Lost(Exception):
    """No answer came, only the front's word that there is none, or a part of one."""


class Keeper(Visitor):
    """`articles` are the rows [number, name, amount] that the database has to hold. With `may_lose`, answers may get lost;
    then the keeper waits until the database has settled, looks whether the save is there, and repeats what is not. `query` is a part of every address."""

    def __init__(self, port, owner, articles, ledger, query=""):
        super().__init__(port, "/articles.php")
        self.start = f"/articles.php?owner={owner}{query}"
        self.owner = owner
        self.articles = articles
        self.ledger = ledger
        self.random = random.Random(owner)
        self.may_lose = False
        self.wait_until_settled = lambda: None
        self.requests = self.made = 0
        self.lost = []
        self.show(self.start)
        self.order, self.descending = "ID", False

    # What goes over the line

    def ask(self, address, form=None):
        self.requests += 1
        body = urllib.parse.urlencode(form) if form is not None else None
        headers = {"Content-Type": "application/x-www-form-urlencoded"} if body is not None else {}
        address = urllib.parse.quote(address, safe="/?&=%")
        with contextlib.closing(http.client.HTTPConnection("127.0.0.1", self.port, timeout=60)) as connection:
            try:
                connection.request("GET" if body is None else "POST", address, body, headers)
                answer = connection.getresponse()
                text = answer.read()
            except (http.client.HTTPException, OSError) as error:
                raise Lost(f"{address} broke off: {error!r}") from error
        if answer.status in (502, 504) and body is not None:
            assert b"No answer came" in text, text
            raise Lost(f"no answer to the post {form}")
        assert answer.status == 200, f"{answer.status} for {address}: {text[:500]}"
        if answer.headers["Content-Type"] == "application/vnd.ms-excel":
            assert text.endswith(b"</table>"), text[-500:]
            return answer.headers, text
        self.check_end(text)
        return answer.headers, text

    def check_end(self, text):
        """A page ends with what has failed: nothing."""
        assert text.endswith(b"<p id=\"error\"></p>\n<!-- complete -->\n"), text[-500:]

    def surely(self, action, *arguments):
        """Repeats what changes nothing until an answer comes."""
        while True:
            try:
                return action(*arguments)
            except Lost as failure:
                self.forgive(failure)

    def forgive(self, failure):
        if not self.may_lose or len(self.lost) >= MOST_LOSSES:
            raise failure
        self.lost.append(failure)
        self.wait_until_settled()

    # What a page has to show

    def sorted_articles(self):
        return sorted(self.articles, key=lambda article: article[COLUMNS[self.order]], reverse=self.descending)

    def check_list(self, first=None):
        """The list shows what it should, from the record `first` on. Returns the number of the first record."""
        match = re.search(r"Records? \(?(\d+)(?:\.\.(\d+)\))? of (\d+)", self.page.text)
        assert match, self.page.text
        shown_first, shown_last, count = (int(number or match[1]) for number in match.groups())
        assert first in (None, shown_first), f"{shown_first} is the first record, not {first}"
        assert count == len(self.articles), f"{count} records, not {len(self.articles)}"
        assert shown_last == min(count, shown_first + PAGE_SIZE - 1), match[0]
        expected = [[str(place), *map(str, article)] for place, article in enumerate(self.sorted_articles(), 1)]
        assert self.page.rows == expected[shown_first - 1:shown_last], f"{self.page.rows} is not {expected}"
        return shown_first

    def check_record(self, article, control=None):
        """The one-record view, or the edit form, shows the article."""
        for name, value in zip(("id", "name", "amount"), article):
            shown = self.page.named(f"_Form_{name}")["value"] if control else self.shown(name)
            assert shown == str(value), f"{name} is {shown}, not {value}"

    def shown(self, name):
        return re.search(rf"<th align=left>(?:<span[^>]*>)?{name}(?:</span>)?</th><td>([^<]*)", self.page.text, re.IGNORECASE)[1]

    # What a keeper does, always from list to list

    def step(self):
        self.random.choice([self.turn, self.turn, self.turn, self.sort, self.sort, self.change, self.change, self.add,
                            self.delete])()

    def turn(self):
        first = self.check_list()
        count = len(self.articles)
        last = (count - 1) // PAGE_SIZE * PAGE_SIZE + 1
        moves = {"FIRST": 1, "LAST": last, "PREV": max(1, first - PAGE_SIZE)}
        if first + PAGE_SIZE <= count:
            moves["NEXT"] = first + PAGE_SIZE
        button = self.random.choice(list(moves))
        self.surely(self.press, button)
        self.check_list(moves[button])

    def sort(self):
        link = self.random.choice([link for link in self.page.links if "BookMark=" in link])
        self.surely(self.show, link)
        query = dict(urllib.parse.parse_qsl(urllib.parse.urlsplit(link).query))
        self.order = query["Morvu1OrderByFields"]
        self.descending = query.get("Morvu1OrderByDesc") == "True"
        self.check_list(int(query["Morvu1CurrRecord"]))

    def download(self):
        return self.surely(self.ask, f"{self.start}&Morvu1ToExcel.x=1")[1].decode()

    def open(self, article):
        """Over the list by number, so that every article is found."""
        self.surely(self.show, f"{self.start}&Morvu1FormDisplay=formOneRec&Morvu1PK={article[0]}")

    def back(self):
        """The way back starts anew, with the default order."""
        self.surely(self.show, self.start)
        self.order, self.descending = "ID", False
        self.check_list(1)

    def change(self):
        article = self.random.choice(self.articles)
        amount = self.new_amount()
        while not self.change_once(article, amount):
            pass
        self.back()

    def change_once(self, article, amount):
        self.fill_in(article, amount)
        try:
            self.save(article, amount)
            return True
        except Lost as failure:
            self.forgive(failure)
            self.open(article)
            if self.shown("amount") != str(amount):
                return False
            self.note("UPDATE", article, amount)
            return True

    def fill_in(self, article, amount):
        self.open(article)
        self.check_record(article)
        self.type("PK", str(article[0]))
        self.surely(self.press, "FormEdit")
        self.check_record(article, control=True)
        self.type("_Form_amount", str(amount))

    def save(self, article, amount):
        self.press("FormUpdate")
        self.expect("[Record saved ok]")
        self.note("UPDATE", article, amount)

    def note(self, action, article, amount):
        """The keeper has seen that this is in the database."""
        article[2] = amount
        self.ledger.append((action, article[0], amount))

    def add(self):
        amount = self.new_amount()
        name = f"{self.random.choice('abcxyzåß🎻')} {amount}"
        while not self.add_once(name, amount):
            pass
        self.articles.append([int(self.find(name)[1]), name, amount])
        self.note("INSERT", self.articles[-1], amount)
        self.back()

    def add_once(self, name, amount):
        self.surely(self.show, f"{self.start}&Morvu1FormDisplay=formOneRec&Morvu1FormAdd=1")
        for field, value in (("owner", self.owner), ("name", name), ("amount", amount)):
            self.type(f"_Form_{field}", str(value))
        try:
            self.press("FormUpdate")
            self.expect("[New record saved ok]")
            return True
        except Lost as failure:
            self.forgive(failure)
            return self.find(name) is not None

    def delete(self):
        if len(self.articles) <= PAGE_SIZE:
            return
        article = self.random.choice(self.articles)
        while not self.delete_once(article):
            pass
        self.articles.remove(article)
        self.note("DELETE", article, article[2])
        self.back()

    def delete_once(self, article):
        self.open(article)
        self.type("PK", str(article[0]))
        self.surely(self.press, "FormEdit")
        try:
            self.press("FormDelete")
            self.expect("[Record deleted]")
            return True
        except Lost as failure:
            self.forgive(failure)
            return self.find(article[1]) is None

    def find(self, name):
        """The row with that name among all."""
        self.surely(self.show, f"{self.start}&Morvu1maxrecords=1000")
        return next((row for row in self.page.rows if row[2] == name), None)

    def new_amount(self):
        """Never the same again, so that every save can be told from every other."""
        self.made += 1
        return self.owner * 1_000_000 + self.made

    def expect(self, message):
        assert message in self.page.text, self.page.text
