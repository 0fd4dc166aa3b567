"""Programs that serve pages, run by tests on a free port of 127.0.0.1, and what a visitor asks them."""

import contextlib
import http.client
import socket
import subprocess
import tempfile
import time

from database_servers import end_with_parent, free_port

PATIENCE_S = 120


class WebProgram:
    """A running program; its errors and what it prints are in `said()`."""

    def __init__(self, command, port):
        self.port = port
        self.log = tempfile.TemporaryFile("w+")
        self.process = subprocess.Popen([str(word) for word in command], stdin=subprocess.DEVNULL, stdout=self.log,
                                        stderr=subprocess.STDOUT, preexec_fn=end_with_parent)

    def is_ready(self):
        if self.process.poll() is not None:
            raise AssertionError(f"the program has ended with {self.process.returncode}:\n{self.said()}")
        with contextlib.suppress(OSError), socket.create_connection(("127.0.0.1", self.port), 1):
            return True
        return False

    def said(self):
        self.log.seek(0)
        return self.log.read()

    def stop(self):
        """Its exit status."""
        self.process.terminate()
        return self.process.wait(PATIENCE_S)

    def ask(self, method, target, body=None, headers=()):
        """The answer and its body. A body is a form of this site."""
        given = {"Content-Type": "application/x-www-form-urlencoded", "Sec-Fetch-Site": "same-origin"} if body else {}
        connection = http.client.HTTPConnection("127.0.0.1", self.port, timeout=PATIENCE_S)
        with contextlib.closing(connection):
            connection.request(method, target, body, given | dict(headers))
            answer = connection.getresponse()
            return answer, answer.read().decode(errors="replace")

    def get(self, target, headers=()):
        return self.ask("GET", target, headers=headers)


@contextlib.contextmanager
def serving(command_for):
    """A program started by the command that `command_for` makes of a port."""
    port = free_port()
    program = WebProgram(command_for(port), port)
    try:
        last = time.monotonic() + PATIENCE_S
        while not program.is_ready():
            if time.monotonic() > last:
                raise AssertionError(f"the program does not answer:\n{program.said()}")
            time.sleep(0.02)
        yield program
    finally:
        if program.process.poll() is None:
            program.stop()
        program.log.close()
