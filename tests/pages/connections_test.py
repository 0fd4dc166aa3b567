"""What becomes of the connections of a site to its database server between pages.

usage: connections_test.py KIND PHP EXTENSION, KIND postgresql or mariadb
"""

import sys
import time
import unittest

import database_site


class Connections(unittest.TestCase):
    arguments = []

    def site(self, *settings):
        site = database_site.Site(*self.arguments, settings)
        self.addCleanup(site.__exit__)
        return site.__enter__()

    @staticmethod
    def count(shop):
        [(number,)] = shop.rows({
            "postgresql": "SELECT COUNT(*) FROM pg_stat_activity WHERE datname = 'shop' AND pid <> pg_backend_pid()",
            "mariadb": "SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE DB = 'shop' AND ID <> CONNECTION_ID()",
        }[shop.kind])
        return int(number)

    def assert_count(self, shop, number):
        """A server takes a moment to notice that a connection was closed, also that of the last count."""
        deadline = time.monotonic() + database_site.PATIENCE_S
        while (counted := self.count(shop)) != number and time.monotonic() < deadline:
            time.sleep(0.02)
        self.assertEqual(counted, number)

    def assert_shows_goods(self, visitor):
        self.assertEqual(len(visitor.show().rows), 20, visitor.page.text[-500:])
        self.assertTrue(visitor.page.text.endswith('<p id="error"></p>'))

    def test_outlive_a_restart_of_the_server_between_two_pages(self):
        site = self.site()
        visitor = site.visitor()
        self.assert_shows_goods(visitor)
        worker = visitor.worker
        site.shop.server.stop()
        site.shop.server.start()
        self.assert_shows_goods(visitor)

        site.shop.server.stop()
        begin = time.monotonic()
        page = visitor.show()
        self.assertLess(time.monotonic() - begin, database_site.PATIENCE_S)
        self.assertNotIn("4711", page.text)
        self.assertEqual(page.rows, [])
        site.shop.server.start()
        self.assert_shows_goods(visitor)
        self.assertEqual(visitor.worker, worker)

    def test_are_kept_for_the_next_page(self):
        site = self.site()
        visitor = site.visitor()
        for _ in range(5):
            self.assert_shows_goods(visitor)
            self.assert_count(site.shop, 1)

    def test_are_not_kept_when_the_pool_has_no_room(self):
        site = self.site("dralo.pool_size=0")
        self.assert_shows_goods(site.visitor())
        self.assert_count(site.shop, 0)

    def test_are_closed_when_nobody_has_used_them_for_a_while(self):
        site = self.site("dralo.pool_idle_seconds=1")
        (site.folder / "other.php").write_text("a page without a view")
        visitor = site.visitor()
        self.assert_shows_goods(visitor)
        self.assert_count(site.shop, 1)
        time.sleep(1.1)
        visitor.show("/other.php")
        self.assert_count(site.shop, 0)


if __name__ == "__main__":
    Connections.arguments = sys.argv[1:4]
    del sys.argv[1:4]
    unittest.main()
