#!/usr/bin/python3 -B
"""Runs the examples of a document and compares what they write with what the document says.

    run_examples.py pages DOCUMENT SHOP PHP_CGI EXTENSION   every ```php block, as a page that a browser asks for
    run_examples.py program DOCUMENT SHOP PROGRAM           the ```cpp block with a main(), compiled before
    run_examples.py extract DOCUMENT                        prints that block

Every example runs in a folder of its own that holds the example database as shop.db. A ```html or ```text block behind
an example says what it writes: a line "..." stands for any lines, "..." in a line for any text. An example without such
a block has to run without an error.

A ```php block that does not begin with <?php is a part of a page: it runs in the page of docs/getting-started.md that
has a place for it. Behind the word "php" may stand the request, "?query" or "POST form", and "-d name=value" for a
setting of PHP.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from dataclasses import dataclass
from pathlib import Path

# The page that parts of pages stand in is shown to the reader too.
PAGE_DOCUMENT = Path(__file__).parents[2] / "docs/getting-started.md"
PLACE_OF_PART = "// The example stands here.\n"
FENCE = re.compile(r"^```(\w*) ?(.*)$")
ANY_LINES = "..."


@dataclass
class Block:
    language: str
    settings: str
    line: int
    lines: list[str]

    @property
    def text(self):
        return "\n".join(self.lines) + "\n"


def blocks_of(document):
    """The fenced blocks of the document in their order."""
    block = None
    for number, line in enumerate(document.read_text(encoding="utf-8").splitlines(), 1):
        if block is not None and line == "```":
            yield block
            block = None
        elif block is not None:
            block.lines.append(line)
        elif found := FENCE.match(line):
            block = Block(found[1], found[2], number, [])


def examples_of(document, language):
    """(example, what it writes or None)."""
    blocks = list(blocks_of(document))
    for block, following in zip(blocks, [*blocks[1:], None]):
        if block.language == language:
            says = following is not None and following.language in ("html", "text")
            yield block, following if says else None


def program_of(document):
    return next(example for example in examples_of(document, "cpp") if "int main(" in example[0].text)


def is_same_line(expected, line):
    pattern = ".*".join(re.escape(part) for part in expected.split(ANY_LINES))
    return re.fullmatch(pattern, line) is not None


def find(part, lines, start, at_end):
    """Where the lines of `part` stand one behind the other in `lines[start:]`; None when they do not."""
    last = len(lines) - len(part)
    for at in [last] if at_end else range(start, last + 1):
        if at >= start and all(map(is_same_line, part, lines[at:])):
            return at
    return None


def first_difference(expected, lines):
    """The part of `expected` that `lines` do not have; None when they agree."""
    parts = [[]]
    for line in expected:
        if line.strip() == ANY_LINES:
            parts.append([])
        else:
            parts[-1].append(line)
    at = 0
    for number, part in enumerate(parts):
        is_last = number == len(parts) - 1
        found = find(part, lines, at, is_last)
        if found is None or (number == 0 and found != 0):
            return part
        at = found + len(part)
    return None


def written_lines(output):
    lines = [line.rstrip() for line in output.replace("\r\n", "\n").split("\n")]
    while lines and not lines[0]:
        lines.pop(0)
    while lines and not lines[-1]:
        lines.pop()
    return lines


def page_text(block):
    if block.text.startswith("<?php"):
        return block.text
    page = next(other.text for other in blocks_of(PAGE_DOCUMENT) if PLACE_OF_PART in other.text)
    before, _, after = page.partition(PLACE_OF_PART)
    return before + block.text + ("" if "WriteHtmlTable" in block.text else after)


def request_of(settings):
    """(environment, posted form) of the request behind the word "php"."""
    query = re.search(r"\?(\S*)", settings)
    form = re.search(r"\bPOST (\S*)", settings)
    body = form[1] if form else ""
    environment = {
        "REQUEST_METHOD": "POST" if form else "GET",
        "QUERY_STRING": query[1] if query else "",
        "CONTENT_TYPE": "application/x-www-form-urlencoded" if form else "",
        "CONTENT_LENGTH": str(len(body)) if form else "",
    }
    return environment, body


def run_page(block, folder, php_cgi, extension):
    page = folder / "page.php"
    page.write_text(page_text(block), encoding="utf-8")
    environment, form = request_of(block.settings)
    environment |= {"REDIRECT_STATUS": "200", "SCRIPT_FILENAME": str(page), "SCRIPT_NAME": "/page.php"}
    options = ["-n", "-q", "-d", f"extension={extension}", "-d", "error_reporting=-1", "-d", "log_errors=1",
               "-d", "display_errors=0", *re.findall(r"-d|(?<=-d )\S+", block.settings)]  # fmt: skip
    return subprocess.run([php_cgi, *options], input=form, env={**os.environ, "LC_ALL": "C.UTF-8", **environment},
                          cwd=folder, capture_output=True, encoding="utf-8", timeout=60, check=False)  # fmt: skip


def without_headers(output):
    return output.replace("\r\n", "\n").partition("\n\n")[2]


def problem_of(output, process, expected):
    """Why the example does not do what the document says; "" when it does."""
    errors = process.stderr.strip()
    if process.returncode != 0 or errors:
        return f"ended with {process.returncode}: {errors}\n{output}"
    if expected is None:
        return output if " in WriteHTMLTable" in output or " not available " in output else ""
    part = first_difference(expected.lines, written_lines(output))
    if part is None:
        return ""
    return f"these lines of the document, line {expected.line},\n" + "\n".join(part) + "\nare not in\n" + output


def in_folder_with_shop(shop, run):
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        shutil.copy(shop, folder / "shop.db")
        return run(folder)


def check_pages(document, shop, php_cgi, extension):
    problems = examples = 0
    for block, expected in examples_of(document, "php"):
        process = in_folder_with_shop(shop, lambda folder: run_page(block, folder, php_cgi, extension))
        problem = problem_of(without_headers(process.stdout), process, expected)
        examples += 1
        if problem:
            problems += 1
            print(f"{document}:{block.line}: {problem}")
    print(f"{examples} examples, {problems} of them wrong")
    return problems == 0 and examples > 0


def check_program(document, shop, program):
    _, expected = program_of(document)
    process = in_folder_with_shop(
        shop,
        lambda folder: subprocess.run(
            [program], cwd=folder, capture_output=True, encoding="utf-8", timeout=60, check=False
        ),
    )
    problem = problem_of(process.stdout, process, expected)
    print(problem or "the program writes what the document says")
    return not problem and expected is not None


def main(command, document, *arguments):
    document = Path(document)
    if command == "extract":
        print(program_of(document)[0].text, end="")
        return True
    return {"pages": check_pages, "program": check_program}[command](document, *arguments)


if __name__ == "__main__":
    sys.exit(0 if main(*sys.argv[1:]) else 1)
