#!/usr/bin/env python3
"""Runs the cases of the browser tests in one process with one browser and writes down how each of them ended.

    run_files.py NODE RESULTS FILE...

RESULTS is written in JUnit's form, for tools/sum_results. A case that ends the process or does not end has failed, and those
behind it are run in another process. A file that cannot be loaded has failed. DRALO_CASES=REGEX in the environment runs
only the cases whose names match, or all when cases.browser does; a case's name is "browser.FILE: NAME".
"""

import json
import os
import pathlib
import selectors
import signal
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "support"))
from run_cases import Results, select  # noqa: E402

PATIENCE_S = 300


class Run:
    """One process. It lists all cases first and runs those it is told to; what it starts ends with it."""

    def __init__(self, node, files, folder):
        self.events, events = os.pipe()
        self.process = subprocess.Popen([node, HERE / "run_files.mjs", str(events), *files], stdin=subprocess.PIPE,
                                        pass_fds=[events], start_new_session=True, text=True,
                                        env={**os.environ, "TMPDIR": folder})
        os.close(events)
        self.selector = selectors.DefaultSelector()
        self.selector.register(self.events, selectors.EVENT_READ)
        self.rest = b""

    def __enter__(self):
        return self

    def __exit__(self, *_):
        try:
            os.killpg(self.process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        self.process.wait()
        self.process.stdin.close()
        self.selector.close()
        os.close(self.events)

    def next_event(self):
        """None when the process has ended; a TimeoutError when it says nothing for long."""
        while b"\n" not in self.rest:
            if not self.selector.select(PATIENCE_S):
                raise TimeoutError
            piece = os.read(self.events, 65536)
            if not piece:
                return None
            self.rest += piece
        line, self.rest = self.rest.split(b"\n", 1)
        return json.loads(line)

    def start(self, cases):
        self.process.stdin.write(json.dumps(cases))
        self.process.stdin.close()


def listed(node, files):
    """The names of all cases, and why files could not be loaded."""
    with tempfile.TemporaryDirectory(prefix="dralo-browser-") as folder, Run(node, files, folder) as run:
        found = run.next_event()
        if found is None:
            raise RuntimeError("the files cannot be listed")
        return found["cases"], found["broken"]


def run_some(node, files, cases, results):
    """Runs the cases in one process; returns those that are left when it ends before the last one."""
    left, current = dict.fromkeys(cases), None
    with tempfile.TemporaryDirectory(prefix="dralo-browser-", ignore_cleanup_errors=True) as folder, \
            Run(node, files, folder) as run:
        try:
            run.next_event()
            run.start(cases)
            while event := run.next_event():
                current = event.get("begins")
                if name := event.get("ends"):
                    results.end(name, event["failure"] and f"{name} failed\n{event['failure']}", event["milliseconds"])
                    del left[name]
            trouble = f"ended the process with {run.process.wait()}" if current or left or run.process.wait() else None
        except TimeoutError:
            trouble = "did not end"
    if trouble:
        case = current or next(iter(left), "browser.EndsWell")
        results.end(case, f"{case} {trouble}")
        left.pop(case, None)
    return list(left)


def main(node, file, *files):
    results = Results(pathlib.Path(file), [f"browser.{pathlib.Path(one).name.removesuffix('.test.mjs')}" for one in files])
    results.write()
    cases, broken = listed(node, files)
    cases = select("cases.browser", cases)
    results.failures = dict.fromkeys(cases, "did not run")
    for name, why in broken.items():
        results.end(name, f"{name} could not be loaded\n{why}")
    results.write()
    left = cases
    while left:
        left = run_some(node, files, left, results)
    results.write()
    failed = results.failed()
    print(f"{len(results.failures) - len(failed)} cases passed, {len(failed)} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
