#!/usr/bin/env python3
"""Runs pages by PHP's own test runner, all in one run, and writes down how each of them ended.

usage: run_pages.py PHP RUN_TESTS EXTENSION RESULTS PAGE...

RESULTS is written in JUnit's form, for tools/sum_results. What was skipped or is malformed has failed. DRALO_CASES=REGEX in
the environment runs only the pages whose names match; a page's name is pages.FILE.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree


def name_of(page):
    return f"pages.{pathlib.Path(page).stem}"


def run(php, run_tests, extension, pages):
    """What the runner says of each page."""
    with tempfile.TemporaryDirectory(prefix="dralo-pages-") as folder:
        results = pathlib.Path(folder) / "results"
        subprocess.run([php, "-n", run_tests, "-n", "-q", "-P", f"-j{min(2, os.cpu_count())}", "--no-color", "--no-progress",
                        "--show-diff", "-g", "FAIL,XFAIL,BORK,WARN,LEAK,XLEAK,SKIP", "--set-timeout", "120", "-W", results, "-d",
                        f"extension={extension}", *pages], stdin=subprocess.DEVNULL)
        lines = results.read_text().splitlines() if results.exists() else []
        return {pathlib.Path(page).resolve(): verdict for verdict, page in (line.split("\t", 1) for line in lines if line)}


def write(file, passed):
    root = ElementTree.Element("testsuite")
    for page, is_passed in passed.items():
        case = ElementTree.SubElement(root, "testcase", name=name_of(page), status="run")
        if not is_passed:
            ElementTree.SubElement(case, "failure")
    file.parent.mkdir(parents=True, exist_ok=True)
    ElementTree.ElementTree(root).write(file, encoding="utf-8", xml_declaration=True)


def main(php, run_tests, extension, file, *pages):
    wanted = os.environ.get("DRALO_CASES", "")
    pages = [page for page in pages if re.search(wanted, name_of(page)) or re.search(wanted, "cases.pages")]
    file = pathlib.Path(file)
    passed = dict.fromkeys(pages, False)
    write(file, passed)
    verdicts = run(php, run_tests, extension, pages) if pages else {}
    passed = {page: verdicts.get(pathlib.Path(page).resolve()) == "PASSED" for page in pages}
    write(file, passed)
    for page in pages:
        if not passed[page]:
            print(f"{name_of(page)}: {verdicts.get(pathlib.Path(page).resolve(), 'did not run')}")
    print(f"{sum(passed.values())} pages passed, {len(pages) - sum(passed.values())} failed")
    return 0 if all(passed.values()) else 1


if __name__ == "__main__":
    if len(sys.argv) < 5:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
