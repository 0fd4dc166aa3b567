"""A visitor of pages: sees the controls, links and cells of a page and uses them as a browser does."""

import html.parser
import http.client
import re
import urllib.parse


class Page(html.parser.HTMLParser):
    """What a page shows. Cells are the texts of the elements with the ids of grid cells, by row."""

    def __init__(self, text):
        super().__init__(convert_charrefs=True)
        self.text = text
        self.controls = []  # Dicts of attributes, with "tag", "value", and for selects "options" (value, text).
        self.links = []
        self.rows = []
        self._cell = self._area = self._option = None
        self.feed(text)
        self.close()

    def handle_starttag(self, tag, attributes):
        attributes = {name: value or "" for name, value in attributes}
        match tag:
            case "input" | "textarea" | "select":
                self.controls.append({"value": "", **attributes, "tag": tag, "options": []})
                self._area = self.controls[-1] if tag == "textarea" else None
            case "option":
                self._option = [attributes.get("value", ""), ""]
                select = self.controls[-1]
                if not select["options"] or "selected" in attributes:
                    select["value"] = self._option[0]
                select["options"].append(self._option)
            case "a":
                self.links.append(attributes.get("href", ""))
            case "td" if "cell_" in attributes.get("id", ""):
                row = int(attributes["id"].split("cell_")[1].split("_")[0])
                if row > len(self.rows):
                    self.rows.append([])
                self._cell = ""

    def handle_endtag(self, tag):
        match tag:
            case "textarea":
                self._area = None
            case "option" | "select":
                self._option = None
            case "td" if self._cell is not None:
                self.rows[-1].append(self._cell.replace("\xa0", ""))
                self._cell = None

    def handle_data(self, data):
        if self._area is not None:
            self._area["value"] += data
        elif self._option is not None:
            self._option[1] += data.strip()
        elif self._cell is not None:
            self._cell += data

    def named(self, name):
        """The last control whose name ends like that, in any letter case: a visible one follows hidden ones."""
        return [control for control in self.controls if control.get("name", "").lower().endswith(name.lower())][-1]

    def has(self, name):
        return any(control.get("name", "").lower().endswith(name.lower()) for control in self.controls)

    def link_with(self, *parts):
        return next(link for link in self.links if all(part in link for part in parts))


class Visitor:
    def __init__(self, port, path):
        self.port = port
        self.path = path
        self.worker = None

    def ask(self, address, form=None):
        """The answer's headers and body. `form` is a list of names and values to post."""
        connection = http.client.HTTPConnection("127.0.0.1", self.port, timeout=60)
        headers = {"Content-Type": "application/x-www-form-urlencoded"} if form is not None else {}
        body = urllib.parse.urlencode(form) if form is not None else None
        # Browsers send what stands in a link percent-encoded.
        address = urllib.parse.quote(address, safe="/?&=%+:;,()*'!@$")
        connection.request("GET" if form is None else "POST", address, body, headers)
        answer = connection.getresponse()
        body = answer.read()
        connection.close()
        self.worker = answer.headers["X-Worker"]
        return answer.headers, body

    def show(self, address=None, form=None):
        self.page = Page(self.ask(address or self.path, form)[1].decode())
        return self.page

    def follow(self, *parts):
        return self.show(self.page.link_with(*parts))

    def type(self, name, value):
        self.page.named(name)["value"] = value

    def tick(self, name, is_on):
        control = self.page.named(name)
        control.pop("checked", None)
        if is_on:
            control["checked"] = ""

    def choose(self, name, text):
        select = self.page.named(name)
        select["value"] = next(value for value, shown in select["options"] if shown == text)

    def press(self, name):
        return self.show(self.path, self.posted(name))

    def posted(self, pressed):
        """Names and values that a browser posts when the button whose name ends like that is pressed."""
        fields = []
        for control in self.page.controls:
            kind = control.get("type", "text").lower() if control["tag"] == "input" else control["tag"]
            name = control.get("name", "")
            if "disabled" in control or not name:
                continue
            if kind in ("submit", "image", "button"):
                if kind != "button" and name.endswith(pressed) and not any(pressed in field for field, _ in fields):
                    fields += [(name + ".x", "3"), (name + ".y", "4")] if kind == "image" else [(name, control["value"])]
            elif kind == "checkbox":
                if "checked" in control:
                    fields.append((name, control.get("value") or "on"))
            else:
                fields.append((name, control["value"]))
        # Buttons set hidden fields first: the key of their record, or that the edit view ends.
        onclick = next((c.get("onclick", "") for c in self.page.controls if c.get("name", "").endswith(pressed)), "")
        set_first = dict(re.findall(r"\.(\w+)\.value='([^']*)'", onclick))
        return [(name, set_first.get(name, value)) for name, value in fields]
