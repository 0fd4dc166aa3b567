#!/usr/bin/python3 -B
"""Lets libFuzzer try a target of the preset "fuzz", which must be built.

    tests/fuzz/run_fuzz.py NAME SECONDS

NAME is a file of tests/fuzz/targets without its ending. Starts from tests/fuzz/corpus/NAME and keeps what leads to new code in
build/fuzz/corpus/NAME. Says how many inputs were tried, and fails when one ended the process; that one is in build/fuzz/findings.
Copy it to tests/fuzz/corpus/NAME when its cause is mended.
"""

import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "fuzz"
INPUT_TIMEOUT_S = 60
MEMORY_MB = 4096
MOST_BYTES = 4096
IN_MEMORY = pathlib.Path("/dev/shm")  # Databases there need not wait for a disk.


def main():
    name, seconds = sys.argv[1], int(sys.argv[2])
    grown, findings = BUILD / "corpus" / name, BUILD / "findings"
    grown.mkdir(parents=True, exist_ok=True)
    findings.mkdir(exist_ok=True)
    environment = os.environ | ({"TMPDIR": str(IN_MEMORY)} if IN_MEMORY.is_dir() else {})
    fuzzer = subprocess.run(
        [BUILD / "tests" / "fuzz" / f"fuzz_{name}", f"-max_total_time={seconds}", f"-timeout={INPUT_TIMEOUT_S}",
         f"-rss_limit_mb={MEMORY_MB}", f"-max_len={MOST_BYTES}", f"-artifact_prefix={findings}/{name}-", "-print_final_stats=1",
         grown, ROOT / "tests" / "fuzz" / "corpus" / name],
        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=environment, text=True, errors="replace", check=False)
    tried = re.search(r"number_of_executed_units: (\d+)", fuzzer.stdout)
    if fuzzer.returncode != 0:
        print(fuzzer.stdout[-20_000:])
        print(f"{name}: an input ended the process; it is in {findings}")
    elif tried is None:
        print(f"{name}: nothing was tried")
    else:
        print(f"{name}: {tried.group(1)} inputs in {seconds} s")
    return 0 if fuzzer.returncode == 0 and tried is not None else 1


if __name__ == "__main__":
    sys.exit(main())
