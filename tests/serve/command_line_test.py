#!/usr/bin/env python3
"""What dralo-serve says to those who start it.

usage: command_line_test.py PROGRAM [TEST...]
"""

import os
import re
import signal
import socket
import subprocess

from served import ROOT, ServeTest, run

# Root may read and write what it is forbidden.
AS_A_USER = ["setpriv", "--bounding-set", "-dac_override,-dac_read_search"] if os.geteuid() == 0 else []


class CommandLine(ServeTest):
    def refused(self, *words):
        """The status and the one line of a start that fails, without the program's name."""
        done = subprocess.run([*AS_A_USER, self.program, *map(str, words)], capture_output=True, text=True, timeout=120)
        self.assertEqual(done.stdout, "")
        line = re.fullmatch(r"dralo-serve: (.*)\n", done.stderr)
        self.assertTrue(line, done.stderr)
        return done.returncode, line[1]

    def test_asks_for_a_database(self):
        self.assertEqual(self.refused(), (2, "name a database: dralo-serve shop.db; dralo-serve --help tells more"))

    def test_knows_its_options(self):
        self.assertEqual(self.refused(self.database, "--prot", "80"),
                         (2, "there is no option --prot; dralo-serve --help lists them all"))
        self.assertEqual(self.refused(self.database, "--port"), (2, "--port needs a value; dralo-serve --help tells more"))

    def test_takes_no_empty_value(self):
        for option in ("--port", "--host", "--name", "--user-file"):
            with self.subTest(option=option):
                self.assertEqual(self.refused(self.database, option, ""),
                                 (2, f"{option} needs a value; dralo-serve --help tells more"))

    def test_knows_what_a_port_is(self):
        for port in ("x", "-1", "65536", "80x", "99999999999"):
            with self.subTest(port=port):
                self.assertEqual(self.refused(self.database, "--port", port), (
                    2, f'"{port}" is no port; write a number from 1 to 65535, or 0 for a free one'))

    def test_says_when_the_port_is_in_use(self):
        with socket.create_server(("127.0.0.1", 0)) as other:
            port = other.getsockname()[1]
            self.assertEqual(self.refused(self.database, "--port", port),
                             (1, f"port {port} is in use; choose another by --port"))

    def test_shares_no_port_with_another_one(self):
        port = self.serve().port
        self.assertEqual(self.refused(self.database, "--port", port),
                         (1, f"port {port} is in use; choose another by --port"))

    def test_listens_on_addresses_of_this_machine_only(self):
        status, line = self.refused(self.database, "--host", "192.0.2.1")
        self.assertEqual(status, 1)
        self.assertRegex(line, "^nothing can listen on 192.0.2.1 port 8080; ")

    def test_needs_a_file_that_is_there(self):
        self.assertEqual(self.refused(self.folder / "none.db"), (
            1, f'there is no file {self.folder}/none.db; name an SQLite file or a connection string, which has a "="'))
        self.assertFalse((self.folder / "none.db").exists())
        self.assertEqual(self.refused(self.folder), (1, f"{self.folder} is no file; name an SQLite file"))

    def test_needs_a_file_that_is_a_database(self):
        (self.folder / "text").write_text("Dear diary,\n" * 100)
        self.assertEqual(self.refused(self.folder / "text"), (
            1, f"{self.folder}/text is no SQLite database; name one, or a connection string"))

    def test_needs_the_permission(self):
        self.database.chmod(0)
        self.assertEqual(self.refused(self.database), (
            1, f"you may not read {self.database}; ask its owner for the permission"))
        self.database.chmod(0o444)
        self.assertEqual(self.refused(self.database, "--edit"),
                         (1, f"you may not write {self.database}; leave out --edit to look at it"))

    def test_needs_tables_that_are_there(self):
        self.sql("CREATE TABLE Goods (ID INTEGER PRIMARY KEY)")
        self.assertEqual(self.refused(self.database, "Goods", "goods"),
                         (1, "there is no table or view goods; write its name as the database does"))

    def test_needs_a_provider_that_is_known(self):
        status, line = self.refused("Provider=Abacus;Data Source=x")
        self.assertEqual(status, 1)
        self.assertIn("unknown provider", line)

    def test_needs_host_names(self):
        self.assertEqual(self.refused(self.database, "--name", "a/b")[0], 1)

    def test_tells_its_options_and_version(self):
        said = [subprocess.run([self.program, word], capture_output=True, text=True, check=True).stdout
                for word in ("--help", "--version")]
        for option in ("--port", "--host", "--name", "--edit", "--user-file"):
            self.assertIn(f"\n  {option}", said[0])
        self.assertRegex(said[1], r"^dralo-serve \d+\.\d+\.\d+\n$")

    def test_has_a_manual_page_with_its_options(self):
        told = subprocess.run([self.program, "--help"], capture_output=True, text=True, check=True).stdout
        manual = (ROOT / "serve/dralo-serve.1").read_text().replace("\\-", "-")
        [options] = re.findall(r"^\.SH OPTIONS$(.*?)^\.SH", manual, re.MULTILINE | re.DOTALL)
        self.assertEqual(re.findall(r"--[\w-]+", options), re.findall(r"--[\w-]+", told[told.index("  --"):]))

    def test_says_where_it_is(self):
        server = self.serve()
        self.assertEqual(server.said(),
                         f"test.db is at http://127.0.0.1:{server.port}/ for reading; Ctrl-C stops it\n")

    def test_takes_a_free_port(self):
        with subprocess.Popen([self.program, self.database, "--port", "0"], stdout=subprocess.PIPE, text=True) as program:
            try:
                port = int(re.search(r":(\d+)/", program.stdout.readline())[1])
                socket.create_connection(("127.0.0.1", port)).close()
            finally:
                program.terminate()

    def test_warns_when_others_can_reach_it(self):
        self.assertIn("everybody who can reach 0.0.0.0 can read and change this database; --user-file asks",
                      self.serve("--host", "0.0.0.0", "--edit").said())

    def test_stops_by_signals(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            server = self.serve()
            server.get("/")
            server.process.send_signal(number)
            self.assertEqual(server.process.wait(60), 0)

    def test_stops_by_a_signal_that_comes_at_once(self):
        for _ in range(100):
            with subprocess.Popen([self.program, self.database, "--port", "0"], stdout=subprocess.PIPE, text=True) as program:
                try:
                    program.stdout.readline()
                    program.terminate()
                    self.assertEqual(program.wait(60), 0)
                finally:
                    program.kill()


if __name__ == "__main__":
    run()
