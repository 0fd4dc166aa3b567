"""A PHP with thread safety: threads of one process serve pages side by side. Builds such a PHP from Debian's sources and
the extension for it, in BUILD; the first time takes long.

usage: threads_test.py BUILD [watched]      "watched" has ThreadSanitizer watch the extension and the program
"""

import os
import pathlib
import sqlite3
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
THREADS = 8
REQUESTS = 50
PEOPLE = """
CREATE TABLE People (ID INTEGER PRIMARY KEY, Name VARCHAR(40), Born DATE, Note VARCHAR(80));
WITH RECURSIVE n(N) AS (SELECT 1 UNION ALL SELECT N + 1 FROM n WHERE N < 20)
INSERT INTO People SELECT N, 'of {thread}', '2001-01-02', '' FROM n;
"""


def run(*command, **options):
    subprocess.run([str(part) for part in command], check=True, **options)


def asked(php_config, option):
    return subprocess.run([php_config, option], check=True, capture_output=True, encoding="utf-8").stdout.split()


def build(folder, is_watched):
    """The program with the threads and the extension for it."""
    run(HERE / "embedded/make_threaded_php", folder / "threaded_php")
    php = folder / "threaded_php/php"
    preset, built = ("threaded_watched", folder / "threaded_watched") if is_watched else ("release", folder / "threaded")
    run("cmake", "--preset", preset, "-B", built, "--log-level=WARNING", "-DDRALO_TESTS=OFF", "-DDRALO_BENCH=OFF",
        f"-DPHP_CONFIG={php}/bin/php-config", cwd=ROOT)  # fmt: skip
    run("cmake", "--build", built, "--target", "dralo_php", "-j", os.cpu_count())
    program = built / "threads"
    run("g++", "-std=c++20", "-O1", "-g", *(["-fsanitize=thread"] if is_watched else []),
        *asked(php / "bin/php-config", "--includes"), HERE / "embedded/threads.cpp", "-o", program, f"-L{php}/lib",
        f"-Wl,-rpath,{php}/lib", "-lphp")  # fmt: skip
    return program, built / "dralo.so"


def main(folder, watched=""):
    is_watched = watched == "watched"
    program, extension = build(pathlib.Path(folder).resolve(), is_watched)
    with tempfile.TemporaryDirectory() as databases:
        for thread in range(THREADS):
            database = sqlite3.connect(f"{databases}/{thread}.db")
            database.executescript(PEOPLE.format(thread=thread))
            database.close()
        # ThreadSanitizer does not know every place where the system may put a program.
        command = ["setarch", "--addr-no-randomize"] if is_watched else []
        command += [program, extension, HERE / "embedded/threads.php", databases, str(THREADS), str(REQUESTS)]
        settings = {"LC_ALL": "en_US.UTF-8", "TSAN_OPTIONS": "halt_on_error=1"}
        process = subprocess.run(command, env=os.environ | settings, check=False)
    print(f"{THREADS} threads with {REQUESTS} requests each ended with {process.returncode}")
    return process.returncode


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
