#!/usr/bin/env python3
"""Runs the cases of a GoogleTest program in one process and writes down how each of them ended.

    run_cases.py NAME PROGRAM RESULTS

RESULTS is written in JUnit's form, for tools/sum_results. A case that ends its process or does not end has failed, and
those behind it are run in another process. What the program does after its last case, such as a report of leaks, is a
case of its own when it fails.

DRALO_CASES=REGEX in the environment runs only the cases whose names match, or all when NAME does.
"""

import os
import pathlib
import re
import selectors
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

PATIENCE_S = 300
BEGIN = re.compile(r"\[ RUN      \] (\S+)$")
END = re.compile(r"\[ {7}OK \] (\S+) \((\d+) ms\)$|\[  FAILED  \] (\S+?),? .*\((\d+) ms\)$")
SKIPPED = re.compile(r"\[  SKIPPED \] (\S+) ")


def list_cases(program):
    """In the order in which they run."""
    cases, suite = [], ""
    listed = subprocess.run([program, "--gtest_list_tests"], stdout=subprocess.PIPE, text=True, check=True)
    for line in listed.stdout.splitlines():
        word = line.split("#")[0].rstrip()
        if word.endswith(".") and not line.startswith(" "):
            suite = word
        elif line.startswith("  "):
            cases.append(suite + word.strip())
    return cases


def select(name, cases):
    wanted = os.environ.get("DRALO_CASES", "")
    return cases if re.search(wanted, name) else [case for case in cases if re.search(wanted, case)]


class Results:
    """How the cases ended; one that did not has failed."""

    def __init__(self, file, cases):
        self.file = file
        self.failures = dict.fromkeys(cases, "did not run")
        self.milliseconds = {}

    def end(self, case, failure, milliseconds=0):
        self.failures[case] = failure
        self.milliseconds[case] = milliseconds
        if failure:
            print(failure, flush=True)

    def failed(self):
        return [case for case, failure in self.failures.items() if failure]

    def write(self):
        root = ElementTree.Element("testsuite")
        for case, failure in self.failures.items():
            seconds = self.milliseconds.get(case, 0) / 1000
            element = ElementTree.SubElement(root, "testcase", name=case, status="run", time=str(seconds))
            if failure:
                ElementTree.SubElement(element, "failure", message=failure.splitlines()[0])
        self.file.parent.mkdir(parents=True, exist_ok=True)
        ElementTree.ElementTree(root).write(self.file, encoding="utf-8", xml_declaration=True)


class Run:
    """One process of the program. `left` are the cases that have not ended."""

    def __init__(self, program, cases, results):
        self.left = dict.fromkeys(cases)
        self.results = results
        self.current = None
        self.said = []
        self.has_failed = False
        with tempfile.NamedTemporaryFile("w", prefix="dralo-cases-") as flags:
            flags.write(f"--gtest_filter={':'.join(cases)}\n--gtest_print_time=1\n--gtest_color=no\n")
            flags.flush()
            self.process = subprocess.Popen([program, f"--gtest_flagfile={flags.name}"], stdin=subprocess.DEVNULL,
                                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            is_late = self.listen()
            status = self.process.wait()
        if self.current:
            self.end(self.current, "did not end" if is_late else f"ended the program with {status}", 0)
        elif status != 0 and not self.has_failed:  # Between two cases, or behind the last one.
            self.current = f"{pathlib.Path(program).name}.EndsWell"
            self.end(self.current, f"ended with {status}", 0)

    def listen(self):
        """To the end of the output; returns whether the program had to be ended."""
        with selectors.DefaultSelector() as selector, self.process.stdout as output:
            selector.register(output, selectors.EVENT_READ)
            rest = b""
            while selector.select(PATIENCE_S):
                piece = os.read(output.fileno(), 65536)
                *lines, rest = (rest + piece).split(b"\n")
                for line in lines:
                    self.hear(line.decode(errors="replace"))
                if not piece:
                    self.said.append(rest.decode(errors="replace"))
                    return False
        self.process.kill()
        return True

    def hear(self, line):
        if begin := BEGIN.search(line):
            self.current, self.said = begin[1], []
        elif (skip := SKIPPED.search(line)) and self.current == skip[1]:
            self.end(self.current, "was skipped", 0)
        elif (end := END.search(line)) and self.current == (end[1] or end[3]):
            self.end(self.current, "failed" if end[3] else None, int(end[2] or end[4]))
        else:
            self.said.append(line)

    def end(self, case, failure, milliseconds):
        self.results.end(case, failure and "\n".join([f"{case} {failure}", *self.said]), milliseconds)
        self.has_failed |= failure is not None
        self.left.pop(case, None)
        self.current, self.said = None, []


def main(name, program, file):
    cases = select(name, list_cases(program))
    results = Results(pathlib.Path(file), cases)
    results.write()
    left = cases
    while left:
        before = len(left)
        left = list(Run(program, left, results).left)
        if len(left) == before:
            break
    results.write()
    failed = results.failed()
    print(f"{len(results.failures) - len(failed)} cases passed, {len(failed)} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
