"""A host that is killed while its answer is on the way: the visitor's browser is told that the page is not whole.

Such a moment is too short to be met by killing php-fpm, so a server of this test breaks off where php-fpm could.

usage: cut_off_test.py
"""

import http.client
import pathlib
import shutil
import socket
import struct
import tempfile
import threading
import types
import unittest

from deployed_site import Front, give_away

HEADERS = b"Status: 200 OK\r\nContent-Type: text/html\r\n\r\n"
STDIN, STDOUT, END_REQUEST = 5, 6, 3


def record(kind, content):
    return struct.pack(">BBHHBx", 1, kind, 1, len(content), 0) + content


def read_request(stream):
    """Up to the empty record that ends what the visitor sent."""
    while True:
        _, kind, _, length, padding = struct.unpack(">BBHHBx", stream.read(8))
        stream.read(length + padding)
        if kind == STDIN and length == 0:
            return


class Answering:
    """A host that sends `answer` to each request and closes the connection; a context."""

    def __init__(self, answer):
        self.answer = answer
        self.socket = socket.create_server(("127.0.0.1", 0))
        self.address = "127.0.0.1:{}".format(self.socket.getsockname()[1])
        self.thread = threading.Thread(target=self.serve)

    def __enter__(self):
        self.thread.start()
        return self

    def __exit__(self, *_):
        self.socket.shutdown(socket.SHUT_RDWR)
        self.thread.join()
        self.socket.close()

    def serve(self):
        while True:
            try:
                connection, _ = self.socket.accept()
            except OSError:
                return
            with connection, connection.makefile("rb") as stream:
                read_request(stream)
                connection.sendall(self.answer)


class CutOff(unittest.TestCase):
    def ask(self, answer):
        folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-front-"))
        self.addCleanup(shutil.rmtree, folder)
        (folder / "public").mkdir()
        unused = types.SimpleNamespace(address="127.0.0.1:1")
        with Answering(answer) as host:
            front = Front(folder / "front", folder / "public", [host, unused])
            front.write_hosts([host])
            give_away(folder)
            front.start()
            self.addCleanup(front.stop)
            connection = http.client.HTTPConnection("127.0.0.1", front.port, timeout=60)
            self.addCleanup(connection.close)
            connection.request("GET", "/page.php")
            got = connection.getresponse()
            self.assertEqual(got.status, 200)
            return got.read()

    def test_a_whole_answer_arrives(self):
        answer = record(STDOUT, HEADERS + b"<p>whole</p>") + record(STDOUT, b"") + record(END_REQUEST, bytes(8))
        self.assertEqual(self.ask(answer), b"<p>whole</p>")

    def test_an_answer_that_ends_behind_its_headers_is_no_empty_page(self):
        with self.assertRaises(http.client.IncompleteRead):
            self.ask(record(STDOUT, HEADERS))

    def test_an_answer_that_ends_in_its_middle_is_no_short_page(self):
        with self.assertRaises(http.client.IncompleteRead):
            self.ask(record(STDOUT, HEADERS + b"<p>half"))


if __name__ == "__main__":
    unittest.main()
