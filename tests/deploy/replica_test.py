"""One site with a replica of its PostgreSQL: pages that only show read from it, and it takes over when the first one is gone.

usage: replica_test.py EXTENSION
"""

import pathlib
import shutil
import sys
import tempfile
import unittest
from contextlib import closing

import deployed_site
from keeper import Keeper
from replica import Replica
from stock import Stock


class ASiteWithAReplica(unittest.TestCase):
    extension = None

    def setUp(self):
        folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-shop-"))
        self.addCleanup(shutil.rmtree, folder)
        self.stock = self.enterContext(closing(Stock(folder)))
        self.replica = Replica(self.stock.server.port)
        self.addCleanup(self.replica.remove)
        self.replica.create()
        self.replica.start()
        hosts = {name: self.connections() for name in ("first", "second")}
        self.site = self.enterContext(deployed_site.Site(self.extension, deployed_site.HERE / "served/articles.php", hosts))

    def connections(self):
        """As README.md tells: the server that can be written to is found."""
        both = (f"Hosts=127.0.0.1:{self.stock.server.port},127.0.0.1:{self.replica.port};"
                "Target Session Attributes=read-write")
        one = f"Host=127.0.0.1;Port={self.replica.port}"
        return {"DRALO_DATABASE": self.stock.connection_of("shop_pages", both),
                "DRALO_READ_DATABASE": self.stock.connection_of("shop_reader", one)}

    def keeper(self, owner, query=""):
        return Keeper(self.site.front.port, owner, self.stock.articles(owner), [], query)

    def wait_for_replica(self):
        [[position]] = self.stock.rows("SELECT pg_current_wal_lsn()")
        caught_up = f"SELECT replay_lsn >= '{position}' FROM pg_stat_replication"
        deployed_site.wait_until(lambda: self.stock.rows(caught_up) == [("1",)], "the replica does not follow")

    def test_shows_what_the_replica_has_and_saves_nothing_there(self):
        self.wait_for_replica()
        reader = self.keeper(1, "&read=1")
        for _ in range(10):
            reader.turn()
            reader.sort()
        self.assertEqual(reader.download().count("<tr>"), 1 + len(reader.articles))
        reader.fill_in(reader.articles[0], 77)
        with self.assertRaisesRegex(AssertionError, "cannot execute UPDATE in a read-only transaction"):
            reader.save(reader.articles[0], 77)
        self.assertEqual(self.stock.articles(1), reader.articles)

    def test_goes_on_with_the_replica_when_it_is_promoted(self):
        keeper = self.keeper(2)
        for _ in range(10):
            keeper.step()
        self.wait_for_replica()
        self.stock.server.stop()
        self.stock.server.port = self.replica.port
        self.stock.ask("SELECT pg_promote()")
        for _ in range(10):
            keeper.step()
        self.assertEqual(self.stock.articles(2), sorted(keeper.articles))
        self.assertEqual(sorted(self.stock.saves()), sorted(keeper.ledger))


if __name__ == "__main__":
    ASiteWithAReplica.extension = pathlib.Path(sys.argv[1]).resolve()
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
