"""What programs that write pages or spreadsheets cost, and whether they write the same."""
import hashlib
import os
import re
import statistics
import subprocess
import sys
import time


def seconds(command):
    """On the clock, and user and system time of the command, whose output is thrown away."""
    start = time.monotonic()
    with subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as process:
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode:
        sys.exit(f"status {process.returncode}: {command}")
    return time.monotonic() - start, usage.ru_utime + usage.ru_stime


def in_turns(commands, rounds):
    """What each of the commands took in each round but the first, so that a machine whose speed drifts hits all alike."""
    return [[seconds(command) for command in commands] for _ in range(rounds + 1)][1:]


def more_pages_in_turns(one, many, rounds):
    """The same of what the commands `many` took beyond those of `one`, which are the same programs for one page: neither the
    start of a program nor its first page, which prepares the statements, count."""
    samples = in_turns([*many, *one], rounds)
    return [[tuple(a - b for a, b in zip(round_[i], round_[len(many) + i])) for i in range(len(many))] for round_ in samples]


def rows(command):
    page = subprocess.run(command, capture_output=True, check=True).stdout
    return re.findall(rb'<tr id="drl1row.*?</tr>', page, re.DOTALL)


def digest(command):
    with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as process:
        return hashlib.file_digest(process.stdout, "sha256").hexdigest()


def memory(command):
    """The highest memory in KiB before and after, of bench_export."""
    process = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=True)
    return map(int, process.stderr.split())


def spread(ratios):
    """The median of what several rounds gave, and the least and the most."""
    return f"{statistics.median(ratios):.2f} ({min(ratios):.2f} to {max(ratios):.2f})"


def show(label, samples, unit, per):
    """One line each for clock and CPU: the medians of every program, and the ratios of the first to the others. What the pages
    took beyond one may be too little to tell, and even less than nothing."""
    for kind, name in enumerate(("clock", "CPU")):
        columns = list(zip(*([sample[kind] for sample in round_] for round_ in samples)))
        times = "  ".join(f"{statistics.median(column) / per * unit:9.1f}" for column in columns)
        ratios = "  ".join(spread([a / b for a, b in zip(columns[0], column)]) if min(*columns[0], *column) > 0 else "too little"
                           for column in columns[1:])
        print(f"{label:28}{name:8}{times}   library to each: {ratios}")
