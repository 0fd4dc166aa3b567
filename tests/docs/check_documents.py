#!/usr/bin/python3 -B
"""Checks the links and the names in the documents: check_documents.py ROOT

Every relative link must lead to a file, and its #part to a heading. Every name in `backticks` that looks like one of a
property, method, class, column, request key or CSS class must be one.
"""

import re
import sys
from pathlib import Path

# These speak of the C++ code too; the compiler knows its names.
ABOUT_CODE = {"CONTRIBUTING.md", "RELEASING.md", "docs/architecture.md", "docs/cpp.md", "docs/performance.md"}
OF_PHP = {"ArrayAccess", "DateTimeInterface", "RuntimeException", "TypeError", "ValueError"}

FENCED = re.compile(r"^```.*?^```$", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")
HEADING = re.compile(r"^#+ (.*)$", re.MULTILINE)
CODE = re.compile(r"`([^`\n]+)`")
MEMBER = re.compile(r"\$(?:view|customers|products)->(\w+)")
LITERAL = re.compile(r'"([^"\n]*)"')
NAME = re.compile(r"([A-Z][A-Za-z]*[a-z][A-Z]\w*|[A-Z][a-z]+[A-Z]+\w*|DRLO\w+)(?:[\[(].*)?")


def documents(root):
    yield from sorted(root.glob("*.md"))
    yield from sorted(root.glob("docs/*.md"))


def anchor(heading):
    return re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def known_names(root):
    read = lambda path: (root / path).read_text(encoding="utf-8")  # noqa: E731
    stub = read("hosts/php/dralo.stub.php")
    names = set(re.findall(r"(?:\$|function |class )(\w+)", stub))
    names |= set(re.findall(r"\b[A-Z]\w+", read("site/data/schema.sql")))
    names |= set(re.findall(r'= "(\w+)";', read("src/state/request_keys.h")))
    names |= set(re.findall(r"\.((?:DRLO|Dralo)\w+)", read("assets/dralo.css")))
    for source in root.glob("src/**/*.cpp"):
        text = source.read_text(encoding="utf-8")
        names |= set(re.findall(r"DRLO\w+|FormDralo\w+", text))
        names |= {word for literal in LITERAL.findall(text) for word in re.findall(r"\w+", literal)}
    return names | OF_PHP


def link_problems(root, document, text):
    for link in LINK.findall(text):
        if re.match(r"[a-z]+:", link):
            continue
        path, _, part = link.partition("#")
        target = (document.parent / path).resolve() if path else document
        if not target.exists() or root not in [target, *target.parents]:
            yield f"{link} leads nowhere"
        elif part and part not in map(anchor, HEADING.findall(FENCED.sub("", target.read_text(encoding="utf-8")))):
            yield f"{link} leads to no heading"


def name_problems(names, text, about_code):
    for code in CODE.findall(text):
        used = MEMBER.findall(code)
        if not about_code and (found := NAME.fullmatch(code)):
            used.append(found[1])
        yield from (f"{name} is unknown" for name in used if name.rstrip("0123456789") not in names)


def main(root):
    names = known_names(root)
    problems = []
    for document in documents(root):
        place = document.relative_to(root).as_posix()
        text = FENCED.sub("", document.read_text(encoding="utf-8"))
        found = [*link_problems(root, document, text), *name_problems(names, text, place in ABOUT_CODE)]
        problems += [f"{place}: {problem}" for problem in found]
    print("\n".join(problems) or "links and names are right")
    return not problems


if __name__ == "__main__":
    sys.exit(0 if main(Path(sys.argv[1]).resolve()) else 1)
