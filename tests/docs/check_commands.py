#!/usr/bin/python3 -B
"""Checks that the README installs as the documents do: check_commands.py ROOT

Every command of its part "Installing" must stand in docs/php.md or docs/cpp.md, in the same order, and so must at least one of
each of its sections.
"""

import re
import sys
from pathlib import Path

BLOCK = re.compile(r"^```sh\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def commands(text):
    """Those of all blocks, without what is said about them."""
    lines = "".join(BLOCK.findall(text)).splitlines()
    return [command for line in lines if (command := re.sub(r"\s+# .*", "", line).strip())]


def stand_in(wanted, given):
    """Whether all of them are there, in their order."""
    rest = iter(given)
    return all(command in rest for command in wanted)


def main(root):
    read = lambda path: (root / path).read_text(encoding="utf-8")  # noqa: E731
    documents = {path: commands(read(path)) for path in ("docs/php.md", "docs/cpp.md")}
    part = re.search(r"^## Installing\n(.*?)^## ", read("README.md"), re.MULTILINE | re.DOTALL)
    sections = re.split(r"^### ", part[1] if part else "", flags=re.MULTILINE)[1:]
    problems = [] if len(sections) == 3 else [f"README.md: {len(sections)} ways to install instead of three"]
    for section in sections:
        wanted = commands(section)
        if not wanted or not any(stand_in(wanted, given) for given in documents.values()):
            problems.append(f"README.md: {section.splitlines()[0]}: no document has these commands in this order: {wanted}")
    print("\n".join(problems) or "the README installs as the documents do")
    return not problems


if __name__ == "__main__":
    sys.exit(0 if main(Path(sys.argv[1]).resolve()) else 1)
