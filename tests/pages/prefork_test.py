"""Connections that the master of php-fpm opened before it forked are left alone by its workers.

usage: prefork_test.py PHP PHP_FPM EXTENSION OPCACHE
"""

import os
import pathlib
import pwd
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

import fastcgi
import shops

PRELOAD = """<?php
// Runs in the master, which keeps the connection.
$connection = Dralo\\CreateObject('ADODB.Connection');
$connection->Open(file_get_contents(__DIR__ . '/connection'));
$pid = $connection->Execute('SELECT pg_backend_pid() AS pid')->Fields['pid']->Value;
$connection->Close();
file_put_contents(__DIR__ . '/preloaded', getmypid() . ' ' . $pid);
"""
PAGE = """<?php
$view = new Dralo\\DbView();
$view->ConnectionString = file_get_contents(__DIR__ . '/connection');
$pid = $view->DrConnection->Connection->Execute('SELECT pg_backend_pid() AS pid')->Fields['pid']->Value;
header('X-Worker: ' . getmypid() . ' ' . $pid);
$view->sql = 'SELECT ID, Name FROM Goods, (SELECT pg_sleep(0.02)) AS Pause WHERE ID < 4';
$view->WriteHtmlTable();
echo $view->ErrorMessage;
"""


class AForkedWorker(unittest.TestCase):
    arguments = []

    def setUp(self):
        """The server runs as nobody, since one that is run by root preloads in another process than the master."""
        php, fpm, extension, opcache = self.arguments
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="pages-"))
        self.addCleanup(shutil.rmtree, self.folder)
        for file, text in (("preload.php", PRELOAD), ("page.php", PAGE), ("fpm.conf", self.configuration())):
            (self.folder / file).write_text(text)
        shutil.copy(pathlib.Path(__file__).parent / "served/run.php", self.folder)
        shutil.copy(extension, self.folder / "dralo.so")
        self.shop = shops.PostgreSqlShop(self.folder)
        self.addCleanup(self.shop.close)
        self.shop.create([php, "-n", "-d", f"extension={extension}"])
        account = {}
        if os.geteuid() == 0:
            nobody = pwd.getpwnam("nobody")
            account = {"user": nobody.pw_uid, "group": nobody.pw_gid, "extra_groups": []}
            os.chown(self.folder, nobody.pw_uid, nobody.pw_gid)
        self.server = subprocess.Popen(
            [fpm, "-n", "-d", f"extension={self.folder}/dralo.so", "-d", f"zend_extension={opcache}", "-d",
             "opcache.enable=1", "-d", f"opcache.preload={self.folder}/preload.php", "-y", self.folder / "fpm.conf", "-F"],
            **account)
        self.addCleanup(self.stop)
        self.wait_for(self.folder / "socket")

    def configuration(self):
        return (f"[global]\nerror_log = {self.folder}/fpm.log\ndaemonize = no\n"
                f"[pages]\nlisten = {self.folder}/socket\npm = static\npm.max_children = 3\n")

    def stop(self):
        self.server.terminate()
        self.server.wait(timeout=120)

    def wait_for(self, file):
        deadline = time.monotonic() + 120
        while not file.exists():
            if time.monotonic() > deadline or self.server.poll() is not None:
                self.fail((self.folder / "fpm.log").read_text())
            time.sleep(0.02)

    def start_page(self):
        return fastcgi.Request(str(self.folder / "socket"),
                               {"SCRIPT_FILENAME": str(self.folder / "page.php").encode(), "SCRIPT_NAME": b"/page.php",
                                "REQUEST_METHOD": b"GET", "QUERY_STRING": b""})

    def sessions(self):
        return {int(pid) for (pid,) in self.shop.rows(
            "SELECT pid FROM pg_stat_activity WHERE datname = 'shop' AND pid <> pg_backend_pid()")}

    def test_opens_connections_of_its_own(self):
        master, inherited = map(int, (self.folder / "preloaded").read_text().split())
        self.assertEqual(master, self.server.pid, "this test proves nothing: there was no preloading in the master")
        self.assertEqual(self.sessions(), {inherited})

        used = {}
        for _ in range(5):
            for request in [self.start_page() for _ in range(6)]:
                head, _, page = request.read().partition(b"\r\n\r\n")
                request.leave()
                self.assertEqual(page.count(b'id="drl1row_'), 3, page)
                worker, session = map(int, head.partition(b"X-Worker: ")[2].split(b"\r\n")[0].split())
                used.setdefault(worker, set()).add(session)

        self.assertGreater(len(used), 1)
        own = [session for sessions in used.values() for session in sessions]
        self.assertEqual(len(own), len(used), "a worker keeps its connection, and no two share one")
        self.assertNotIn(inherited, own)
        self.assertEqual(self.sessions(), {inherited, *own})


if __name__ == "__main__":
    AForkedWorker.arguments = sys.argv[1:5]
    unittest.main(argv=sys.argv[:1] + sys.argv[5:])
