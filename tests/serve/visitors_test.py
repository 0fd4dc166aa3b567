#!/usr/bin/env python3
"""Who may ask dralo-serve, and what becomes of requests that no browser would send.

usage: visitors_test.py PROGRAM [TEST...]
"""

import base64
import concurrent.futures
import contextlib
import gzip
import http.client
import pathlib
import re
import signal
import socket
import sqlite3
import subprocess
import threading
import time

from served import ServeTest, run

# "secret" as htpasswd -B and -5 write it, and "geheim: ä".
USERS = """# people
ada:$2y$05$abcdefghijklmnopqrstuuOQiyCxlgf/oeuTqixKmWdcYUh4Hjl0a

bo:{sha}
"""


def login(user, password):
    return {"Authorization": "Basic " + base64.b64encode(f"{user}:{password}".encode()).decode()}


def open_files(process_id):
    for file in pathlib.Path(f"/proc/{process_id}/fd").iterdir():
        with contextlib.suppress(FileNotFoundError):
            yield file.readlink()


class Visitors(ServeTest):
    def setUp(self):
        super().setUp()
        self.sql("CREATE TABLE Goods (ID INTEGER PRIMARY KEY, Label TEXT)", "INSERT INTO Goods VALUES (1, 'tea')")

    def serve_users(self):
        sha = subprocess.run(["openssl", "passwd", "-5", "geheim: ä"], capture_output=True, text=True, check=True).stdout
        file = self.folder / "users"
        file.write_text(USERS.format(sha=sha))
        return self.serve("--user-file", file)

    def test_lets_in_who_has_a_password(self):
        server = self.serve_users()
        for given in (login("ada", "secret"), login("ada", "secret"), login("bo", "geheim: ä")):
            answer, page = server.get("/table/Goods", given)
            self.assertEqual(answer.status, 200)
            self.assertIn("tea", page)

    def test_keeps_out_everybody_else(self):
        server = self.serve_users()
        server.get("/", login("ada", "secret"))
        for given in ({}, login("ada", "guess"), login("ada", ""), login("ada", "secret\0"), login("cy", "secret"),
                      login("bo", "secret"), login("", ""), {"Authorization": "Basic %%%"},
                      {"Authorization": "Bearer " + login("ada", "secret")["Authorization"][6:]}):
            for address in ("/", "/table/Goods", "/assets/dralo.css", "/nothing"):
                answer, page = server.get(address, given)
                self.assertEqual((given, answer.status, page), (given, 401, "Please log in.\n"))
                self.assertTrue(answer.headers["WWW-Authenticate"].startswith("Basic "))

    def test_names_the_line_of_a_user_file_that_is_none(self):
        for text, why in (("ada:$2y$05$abcdefghijklmnopqrstuuOQiyCxlgf/oeuTqixKmWdcYUh4Hjl0a\nbo:plain\n",
                           "line 2 of the user file {} is no user with a hash that crypt knows; make it with htpasswd -B"),
                          ("# nobody\n", "the user file {} names nobody; add a user with htpasswd -B"),
                          (None, "the user file {} cannot be read: No such file or directory")):
            file = self.folder / "users"
            file.unlink(missing_ok=True)
            if text:
                file.write_text(text)
            done = subprocess.run([self.program, self.database, "--user-file", file], capture_output=True, text=True, timeout=60)
            self.assertEqual((done.returncode, done.stderr), (1, f"dralo-serve: {why.format(file)}\n"))

    def test_answers_under_its_own_names_only(self):
        server = self.serve("--name", "Data.Example", "--name", "front.example:8443")
        for host, status in (("127.0.0.1", 200), (f"localhost:{server.port}", 200), ("LOCALHOST", 200), ("[::1]:80", 200),
                             ("data.example:8443", 200), ("front.example:8443", 200), ("rebound.example", 421), ("127.0.0.1.rebound.example", 421), ("", 421)):
            for address, content in (("/table/Goods", "tea"), ("/", "1 record"), ("/assets/dralo.css", "DRLO")):
                answer, page = server.get(address, {"Host": host})
                self.assertEqual((host, address, answer.status), (host, address, status))
                self.assertEqual(content in page, status == 200)

    def test_protects_each_answer_by_its_headers(self):
        server = self.serve()
        for address in ("/", "/table/Goods", "/nothing", "/assets/dralo.css"):
            headers = server.get(address)[0].headers
            self.assertEqual(headers["Content-Security-Policy"],
                             "default-src 'self'; form-action 'self'; base-uri 'none'; frame-ancestors 'self'")
            self.assertEqual(headers["X-Content-Type-Options"], "nosniff")

    def test_needs_nothing_within_the_page_that_the_policy_forbids(self):
        _, page = self.serve("--edit").get("/table/Goods")
        for forbidden in ("<style", " style=", " onclick", "<script>"):
            self.assertNotIn(forbidden, page)

    def exchange(self, server, text):
        """What comes for bytes that are sent as they are, until the server closes or says no more for a while."""
        with socket.create_connection(("127.0.0.1", server.port), 60) as client:
            client.sendall(text)
            with contextlib.suppress(OSError):  # When it is closed already.
                client.shutdown(socket.SHUT_WR)
            with contextlib.suppress(ConnectionResetError):
                return b"".join(iter(lambda: client.recv(65536), b""))
        return b""

    def test_answers_head_without_a_body(self):
        server = self.serve()
        for address in ("/", "/table/Goods", "/assets/dralo.css", "/nothing", "/table/Goods?Morvu1ToExcel.x=1"):
            got, page = server.get(address)
            answer, body = server.ask("HEAD", address)
            self.assertEqual((address, answer.status, body), (address, got.status, ""))
            if "Content-Length" in got.headers:
                self.assertEqual(answer.headers["Content-Length"], str(len(page.encode())))

    def test_takes_no_body_for_another_request(self):
        server = self.serve("--edit")
        host = b"Host: localhost\r\n"
        hidden = b"GET /hidden HTTP/1.1\r\n" + host + b"\r\n"
        sized = b"Content-Length: %d\r\n\r\n" % len(hidden)
        for begin, end, status in (
                (b"GET /table/Goods", sized, 200), (b"HEAD /table/Goods", sized, 200), (b"PUT /table/Goods", sized, 405),
                (b"GET /table/Goods?Morvu1ToExcel.x=1", sized, 200), (b"POST /" + b"a" * 3000, sized, 414),
                (b"GET /table/Goods", b"Transfer-Encoding: chunked\r\n\r\n", 200),
                (b"POST /table/Goods", b"Content-Type: multipart/form-data\r\n" + sized, 400)):
            with self.subTest(begin=begin[:40]), socket.create_connection(("127.0.0.1", server.port), 60) as client:
                client.sendall(begin + b" HTTP/1.1\r\n" + host + end)
                answer = client.recv(65536)
                # What comes later than the headers is what the server would read as the next request.
                with contextlib.suppress(ConnectionError):
                    client.sendall(hidden)
                    answer += b"".join(iter(lambda: client.recv(65536), b""))
                self.assertEqual(re.findall(rb"^HTTP/1.1 (\d+)", answer, re.MULTILINE), [b"%d" % status])
                self.assertIn(b"\r\nConnection: close\r\n", answer)

    def test_sends_whole_pages_whatever_part_is_asked_for(self):
        server = self.serve()
        for address in ("/table/Goods", "/assets/dralo.css"):
            _, whole = server.get(address)
            for parts in ("0-4", "9999999-", ",".join(["0-"] * 1000)):
                answer, page = server.get(address, {"Range": f"bytes={parts}"})
                self.assertEqual((parts[:9], answer.status, page == whole), (parts[:9], 200, True))

    def test_compresses_pages_for_those_who_take_it(self):
        server = self.serve()
        for address in ("/", "/table/Goods", "/assets/dralo.css"):
            _, page = server.get(address)
            for taken, given in (("gzip, deflate, br, zstd", "gzip"), ("br;q=1.0, gzip;q=0.8", "gzip"), ("gzip", "gzip"),
                                 ("br", None), ("deflate", None), ("identity", None), ("", None)):
                with self.subTest(address=address, taken=taken):
                    connection = http.client.HTTPConnection("127.0.0.1", server.port, timeout=60)
                    with contextlib.closing(connection):
                        connection.request("GET", address, headers={"Accept-Encoding": taken})
                        answer = connection.getresponse()
                        body = answer.read()
                        self.assertEqual(answer.headers["Content-Encoding"], given)
                        self.assertEqual((gzip.decompress(body) if given else body).decode(), page)

    def test_refuses_other_methods(self):
        server = self.serve()
        for method in ("PUT", "DELETE", "PATCH", "OPTIONS", "TRACE"):
            answer, _ = server.ask(method, "/table/Goods")
            self.assertEqual((method, answer.status, answer.headers["Allow"]), (method, 405, "GET, HEAD, POST"))
        self.assertEqual(server.ask("POST", "/nothing", "a=b")[0].status, 404)

    def test_survives_what_is_no_request(self):
        server = self.serve()
        for text in (b"BREW / HTTP/1.1\r\nHost: localhost\r\n\r\n", b"\0\1\2\3\r\n\r\n", b"GET\r\n\r\n", b"GET / HTTP/9.9\r\n\r\n",
                     b"GET / HTTP/1.1\r\n" + b"A: " + b"b" * 100_000 + b"\r\n\r\n", b"\r\n\r\n", b"",
                     b"GET /" + b"\xff\xfe%00%" + b" HTTP/1.1\r\nHost: localhost\r\n\r\n",
                     b"POST /table/Goods HTTP/1.1\r\nHost: localhost\r\nContent-Length: 99999999999\r\n\r\n"):
            answer = self.exchange(server, text)
            self.assertNotIn(b" 200 ", answer.split(b"\r\n")[0], text[:40])
        self.assertEqual(server.get("/table/Goods")[0].status, 200)

    def test_refuses_addresses_that_are_too_long(self):
        server = self.serve("--edit")
        for address in ("/table/" + "a" * 3000, "/table/Goods?a=" + "b" * 20_000, "/table/" + "%20" * 2000, "/" * 8000):
            self.assertEqual(server.get(address)[0].status, 414)
        self.assertEqual(server.ask("POST", "/table/" + "a" * 3000, "a=b")[0].status, 414)

    def test_refuses_forms_that_are_too_large(self):
        server = self.serve("--edit")
        with contextlib.suppress(ConnectionError):  # When it is closed before all of the form was sent.
            self.assertEqual(server.ask("POST", "/table/Goods", "a=" + "b" * 9_000_000)[0].status, 413)
        self.assertEqual(server.get("/table/Goods")[0].status, 200)

    def test_reads_a_form_of_another_kind_to_its_end(self):
        server = self.serve("--edit")
        connection = http.client.HTTPConnection("127.0.0.1", server.port, timeout=60)
        with contextlib.closing(connection):
            body = "--x\r\nContent-Disposition: form-data; name=\"a\"\r\n\r\nb\r\n--x--\r\n"
            connection.request("POST", "/table/Goods", body, {"Content-Type": "multipart/form-data; boundary=x"})
            answer = connection.getresponse()
            self.assertEqual(answer.status, 200)
            answer.read()
            connection.request("GET", "/")
            self.assertEqual(connection.getresponse().status, 200)

    def test_answers_ten_at_once(self):
        server = self.serve("--edit")

        def visit(_):
            return [server.get(address)[0].status for address in ("/", "/table/Goods", "/table/Goods?Morvu1ToExcel.x=1") * 10]

        with concurrent.futures.ThreadPoolExecutor(10) as visitors:
            self.assertEqual(list(visitors.map(visit, range(10))), [[200] * 30] * 10)

    def test_lets_many_connect_at_the_same_moment(self):
        server = self.serve()
        with contextlib.ExitStack() as stack:
            # While the program is stopped, only the system takes connections for it.
            server.process.send_signal(signal.SIGSTOP)
            stack.callback(server.process.send_signal, signal.SIGCONT)
            clients = [stack.enter_context(socket.create_connection(("127.0.0.1", server.port), 20)) for _ in range(50)]
            server.process.send_signal(signal.SIGCONT)
            for client in clients:
                client.sendall(b"GET /table/Goods HTTP/1.1\r\nHost: localhost\r\nConnection: close\r\n\r\n")
            for client in clients:
                self.assertTrue(client.recv(65536).startswith(b"HTTP/1.1 200 "))

    def test_answers_others_while_some_are_slow(self):
        self.sql("WITH N AS (SELECT 2 A UNION ALL SELECT A + 1 FROM N LIMIT 100000) "
                 "INSERT INTO Goods SELECT A, printf('%050d', A) FROM N")
        server = self.serve()
        typing, is_over = [], threading.Event()

        def type_on():
            """Nobody is given up for saying nothing."""
            while not is_over.wait(0.5):
                for client in typing:
                    client.sendall(b"X: y\r\n")

        with contextlib.ExitStack() as stack:
            for _ in range(20):
                reading = stack.enter_context(socket.create_connection(("127.0.0.1", server.port)))
                reading.sendall(b"GET /table/Goods?Morvu1ToExcel.x=1 HTTP/1.1\r\nHost: localhost\r\n\r\n")
                typing.append(stack.enter_context(socket.create_connection(("127.0.0.1", server.port))))
                typing[-1].sendall(b"GET / HTTP/1.1\r\nHost: localhost\r\n")
            typist = threading.Thread(target=type_on)
            typist.start()
            try:
                self.assertEqual(server.get("/table/Goods")[0].status, 200)
            finally:
                is_over.set()
                typist.join()

    def test_waits_once_for_a_database_that_is_locked(self):
        server = self.serve(database=f"Provider=SQLite;Data Source={self.database};Busy Timeout=2000")
        lock = sqlite3.connect(self.database, isolation_level=None)
        with contextlib.closing(lock), concurrent.futures.ThreadPoolExecutor(16) as visitors:
            lock.execute("BEGIN EXCLUSIVE")
            begin = time.monotonic()
            statuses = list(visitors.map(lambda _: server.get("/table/Goods")[0].status, range(16)))
            # One after the other would take 32 seconds.
            self.assertLess(time.monotonic() - begin, 25)
            self.assertLessEqual(set(statuses), {500, 503})
        self.assertEqual(server.get("/table/Goods")[0].status, 200)

    def test_keeps_as_many_connections_as_it_had_visitors_at_once(self):
        self.sql("WITH N AS (SELECT 2 A UNION ALL SELECT A + 1 FROM N LIMIT 200000) "
                 "INSERT INTO Goods SELECT A, printf('%050d', A) FROM N")
        server = self.serve()
        with contextlib.ExitStack() as stack:
            clients = []
            for _ in range(12):
                clients.append(stack.enter_context(socket.create_connection(("127.0.0.1", server.port))))
                clients[-1].sendall(b"GET /table/Goods?Morvu1ToExcel.x=1 HTTP/1.1\r\nHost: localhost\r\n\r\n")
                for client in clients:
                    self.assertTrue(client.recv(65536))
        # The table can be dropped: all statements have ended.
        self.sql("PRAGMA busy_timeout = 60000", "DROP TABLE Goods")
        server.get("/")
        self.assertGreaterEqual(list(open_files(server.process.pid)).count(self.database), 12)

    def test_ends_a_download_that_nobody_takes(self):
        self.sql("WITH N AS (SELECT 2 A UNION ALL SELECT A + 1 FROM N LIMIT 200000) "
                 "INSERT INTO Goods SELECT A, printf('%050d', A) FROM N")
        server = self.serve()
        with socket.create_connection(("127.0.0.1", server.port)) as client:
            client.sendall(b"GET /table/Goods?Morvu1ToExcel.x=1 HTTP/1.1\r\nHost: localhost\r\n\r\n")
            client.recv(1000)
        # The table can be dropped: the statement has ended.
        self.sql("PRAGMA busy_timeout = 60000", "DROP TABLE Goods")
        self.assertEqual(server.get("/table/Goods")[0].status, 404)


if __name__ == "__main__":
    run()
