"""Pages that end in every possible way leave no open statement, no lock and a worker that serves the next page.

usage: server_test.py builtin|fpm PROGRAM EXTENSION
"""

import random
import sys
import time
import unittest

import servers

SERVERS = {"builtin": servers.BuiltInServer, "fpm": servers.Fpm}


class APage(unittest.TestCase):
    arguments = []

    @classmethod
    def setUpClass(cls):
        kind, program, extension = cls.arguments
        cls.server = SERVERS[kind](program, extension)
        cls.server.__enter__()
        cls.addClassCleanup(cls.server.__exit__)
        cls.worker, cls.expected = cls.server.get("well")

    def assert_nothing_is_left(self):
        self.assertFalse(self.server.is_locked(), "the database is still locked")
        worker, page = self.server.get("well")
        self.assertEqual(worker, self.worker, "the worker did not survive")
        self.assertEqual(page, self.expected)

    def wait_until_the_server_has_noticed(self):
        """That a visitor has left comes out at the next write."""
        deadline = time.monotonic() + 120
        while self.server.is_locked() and time.monotonic() < deadline:
            time.sleep(0.01)

    def test_ends_well(self):
        self.assertEqual(self.expected.count(b'id="drl1row_'), 10)
        self.assert_nothing_is_left()

    def test_holds_its_statement_only_while_it_is_written_and_the_visitor_stays(self):
        request = self.server.start(b"end=long")
        request.read(at_least=100_000)
        self.assertTrue(self.server.is_locked(), "this test proves nothing: the page was over already")
        request.leave()
        self.wait_until_the_server_has_noticed()
        self.assert_nothing_is_left()

    def download(self):
        return self.server.start(b"end=download&Morvu1ToExcel.x=1")

    def test_is_downloaded_as_a_spreadsheet_of_all_records(self):
        head, _, table = self.server.answer(b"end=download&Morvu1ToExcel.x=1").partition(b"\r\n\r\n")
        for line in (b"content-type: application/vnd.ms-excel",
                     b"content-disposition: attachment; filename=draloexcelexport.xls"):
            self.assertIn(line, head.lower().split(b"\r\n"))
        self.assertTrue(table.startswith(b"<table>\r\n<tr>\r\n<th "))
        self.assertTrue(table.endswith(b"</td>\r\n</tr>\r\n</table>"))
        self.assertEqual(table.count(b"</tr>"), 20_001)
        self.assert_nothing_is_left()

    def test_is_a_download_that_the_visitor_stops(self):
        for size in (1, 100_000, 1_000_000):
            request = self.download()
            request.read(at_least=size)
            self.assertTrue(self.server.is_locked(), "this test proves nothing: the download was over already")
            request.leave()
            self.wait_until_the_server_has_noticed()
            self.assert_nothing_is_left()

    def test_keeps_objects_alive_past_its_end(self):
        self.server.get("kept")
        self.assert_nothing_is_left()

    def test_keeps_objects_alive_past_a_fatal_error(self):
        self.server.get("kept and fatal")
        self.assert_nothing_is_left()

    def test_exits_in_the_middle(self):
        self.server.get("exit")
        self.assert_nothing_is_left()

    def test_throws_in_the_middle(self):
        self.server.get("exception")
        self.assert_nothing_is_left()

    def test_dies_of_a_fatal_error_in_the_middle(self):
        self.server.get("fatal")
        self.assert_nothing_is_left()

    def test_dies_of_memory_limit_in_the_middle(self):
        self.server.get("memory")
        self.assert_nothing_is_left()

    def test_dies_of_max_execution_time_in_the_middle(self):
        self.server.get("time")
        self.assert_nothing_is_left()

    def test_is_left_by_many_visitors_in_turn(self):
        for size in range(1, 400_000, 40_000):
            request = self.server.start(b"end=long")
            request.read(at_least=size)
            request.leave()
        self.wait_until_the_server_has_noticed()
        self.assert_nothing_is_left()

    def test_is_asked_with_any_bytes(self):
        seeded = random.Random(1)
        alphabet = [b"&", b"=", b"%", b"+", b"Morvu1", b"CurrRecord", b"maxrecords", b"FormDisplay", b"formOneRec", b"PK",
                    b"%00", b"%ff", b"[", b"]", b".x", b";", b"'", b"\"", b"NEXT.x", b"1", b"-9", b"\xf0\x9f", b"A" * 100]
        for _ in range(150):
            query, body = (b"".join(seeded.choices(alphabet, k=seeded.randrange(1, 60))) for _ in range(2))
            # Raw bytes in a request line are for the server to refuse.
            answer = self.server.answer(query.replace(b"\"", b"%22").replace(b"\xf0\x9f", b"%f0%9f"), body)
            self.assertTrue(b"X-Worker: " + self.worker in answer)
            for word in (b"Warning", b"Notice", b"Deprecated"):
                self.assertNotIn(word, answer)
        self.assert_nothing_is_left()

    def test_is_asked_with_a_key_and_a_value_of_a_megabyte(self):
        large = b"k" * 1_000_000
        answer = self.server.answer(b"", large + b"=" + large + b"&%5b=" + large)
        self.assertTrue(b"X-Worker: " + self.worker in answer)
        self.assertTrue(large in answer)
        self.assert_nothing_is_left()


if __name__ == "__main__":
    APage.arguments = sys.argv[1:4]
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
