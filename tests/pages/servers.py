"""The two servers that pages are tested under. Both run in a folder with the page and a database of numbers."""

import os
import pathlib
import shutil
import socket
import sqlite3
import subprocess
import sys
import tempfile
import time

import fastcgi

HERE = pathlib.Path(__file__).parent
sys.path.append(str(HERE.parent / "support"))

import sqlite_lock  # noqa: E402
from database_servers import free_port  # noqa: E402


class Server:
    """A server in a folder of its own; a context, stopped at its end."""

    def __init__(self, program, extension, *settings):
        self.program = program
        self.options = ["-n"]
        for setting in (f"extension={extension}", "display_errors=0", "output_buffering=0", *settings):
            self.options += ["-d", setting]
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="pages-"))
        self.database = self.folder / "numbers.db"
        self.log = open(self.folder / "log", "w+")

    def __enter__(self):
        shutil.copy(HERE / "served/page.php", self.folder)
        with sqlite3.connect(self.database) as database:
            database.execute("CREATE TABLE Numbers (N INTEGER PRIMARY KEY, Text VARCHAR(400))")
            database.execute("WITH RECURSIVE n(N) AS (SELECT 1 UNION ALL SELECT N + 1 FROM n WHERE N < 20000) "
                             "INSERT INTO Numbers SELECT N, 'number ' || N || hex(zeroblob(180)) FROM n")
        database.close()
        self.process = subprocess.Popen(self.command(), cwd=self.folder, stdout=self.log, stderr=self.log)
        try:
            self.wait_until_ready()
        except Exception:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait(timeout=120)
        self.log.close()
        shutil.rmtree(self.folder)

    def wait_until_ready(self):
        for _ in range(2000):
            try:
                self.get("well")
                return
            except OSError:
                if self.process.poll() is not None:
                    break
                time.sleep(0.05)
        self.log.seek(0)
        raise RuntimeError("the server does not answer: " + self.log.read())

    def answer(self, query, body=b""):
        """Headers and page, whole."""
        request = self.start(query, body)
        try:
            return request.read()
        finally:
            request.leave()

    def get(self, end):
        """The worker that answered and the page."""
        head, _, page = self.answer(f"end={end}".replace(" ", "%20").encode()).partition(b"\r\n\r\n")
        workers = [line.partition(b": ")[2] for line in head.split(b"\r\n") if line.lower().startswith(b"x-worker:")]
        return (workers or [None])[0], page

    def is_locked(self):
        return sqlite_lock.is_locked(self.database)


class BuiltInServer(Server):
    """php -S with one process."""

    def command(self):
        self.port = free_port()
        return [self.program, *self.options, "-S", f"127.0.0.1:{self.port}", "-t", str(self.folder)]

    def start(self, query, body=b""):
        return HttpRequest(self.port, query, body)


class HttpRequest:
    """A request that was sent and whose answer can be read piece by piece, or be left."""

    def __init__(self, port, query, body):
        self.socket = socket.create_connection(("127.0.0.1", port), timeout=60)
        method = b"POST" if body else b"GET"
        form = b"Content-Type: application/x-www-form-urlencoded\r\nContent-Length: %d\r\n" % len(body) if body else b""
        self.socket.sendall(b"%b /page.php?%b HTTP/1.0\r\n%b\r\n%b" % (method, query, form, body))

    def read(self, at_least=None):
        output = b""
        while at_least is None or len(output) < at_least:
            piece = self.socket.recv(65536)
            if not piece:
                break
            output += piece
        return output

    def leave(self):
        self.socket.close()


class Fpm(Server):
    """php-fpm with one worker, spoken to directly."""

    def command(self):
        self.address = str(self.folder / "socket")
        is_root = os.geteuid() == 0
        configuration = self.folder / "fpm.conf"
        configuration.write_text(
            f"[global]\nerror_log = {self.folder}/fpm.log\ndaemonize = no\n"
            f"[pages]\nlisten = {self.address}\npm = static\npm.max_children = 1\n"
            + ("user = root\ngroup = root\n" if is_root else ""))
        return [self.program, *self.options, "-y", str(configuration), "-F", *(["-R"] if is_root else [])]

    def start(self, query, body=b""):
        params = {"SCRIPT_FILENAME": str(self.folder / "page.php").encode(), "SCRIPT_NAME": b"/page.php",
                  "REQUEST_METHOD": b"POST" if body else b"GET", "QUERY_STRING": query}
        if body:
            params |= {"CONTENT_TYPE": b"application/x-www-form-urlencoded", "CONTENT_LENGTH": b"%d" % len(body)}
        return fastcgi.Request(self.address, params, body)
