"""One site on two hosts, each with a pooler of connections beside it that leads to one PostgreSQL, and for reading to its replica."""

import collections
import subprocess

import pair
import deployed_site
import interruption
from crowd import Crowd
from patient_keeper import Failed, PatientKeeper
from rival import Rival
from save import Save
from stock import OWNERS

WORKERS = 6


class PooledSite:
    """What a site has to stand, whatever the pooler is: a class of unittest.TestCase says which by `new_pooler(pair)`."""

    extension = None

    @classmethod
    def setUpClass(cls):
        cls.pair = cls.enterClassContext(pair.Pair())
        cls.stock = cls.pair.stock
        cls.poolers = []
        for _ in range(2):
            cls.poolers.append(pooler := cls.new_pooler(cls.pair))
            cls.addClassCleanup(pooler.remove)
            pooler.start()
        hosts = {"first": cls.connections(*cls.poolers), "second": cls.connections(*reversed(cls.poolers))}
        cls.site = cls.enterClassContext(deployed_site.Site(cls.extension, deployed_site.HERE / "served/articles.php", hosts))
        cls.ledger = []
        cls.keepers = [PatientKeeper(cls.site.front.port, owner, cls.stock.articles(owner), cls.ledger) for owner in OWNERS]
        cls.crowd = Crowd(cls.keepers)

    @classmethod
    def connections(cls, own, other):
        hosts = f"Hosts=127.0.0.1:{own.port},127.0.0.1:{other.port}"
        return {"DRALO_DATABASE": cls.stock.connection_of("shop_pages", f"{hosts};{own.for_saving}", own.saves_in),
                "DRALO_READ_DATABASE": cls.stock.connection_of("shop_reader", f"{hosts};{own.for_reading}", own.reads_in)}

    def setUp(self):
        """What a test before has left is no concern of the next one."""
        self.stock.ask("DELETE FROM Saves")
        self.ledger.clear()
        for keeper in self.keepers:
            keeper.articles = self.stock.articles(keeper.owner)

    def tearDown(self):
        """Nothing got lost: the database holds what the keepers know, and every save that they saw happen happened once."""
        for keeper in self.keepers:
            self.assertEqual(self.stock.articles(keeper.owner), sorted(keeper.articles))
        self.assertEqual(collections.Counter(self.stock.saves()), collections.Counter(self.ledger))
        for host in self.site.hosts:
            self.assertEqual(host.take_complaints(), [])

    def lost(self):
        return [failure for keeper in self.keepers for failure in keeper.lost]

    def wait_until_settled(self):
        """Until nothing that pages have begun is still going on; pages must be at rest or begin anew."""
        [[now]] = self.stock.rows("SELECT clock_timestamp()")
        begun = f"SELECT pid FROM pg_stat_activity WHERE usename = 'shop_pages' AND xact_start < '{now}'"
        deployed_site.wait_until(lambda: not self.stock.rows(begun), "a transaction does not end")
        self.crowd.has_settled.set()

    def wait_until_poolers_serve(self):
        """A pooler takes some time to find that the server is back."""
        for pooler in self.poolers:
            deployed_site.wait_until(lambda: self.ask(pooler, "SELECT 'served'") == ["served"], "it does not serve")  # noqa: B023

    @staticmethod
    def ask(pooler, sql):
        """What somebody is told who connects through the pooler."""
        place = f"host=127.0.0.1 port={pooler.port} user=shop_pages password=shop_pages;1 dbname=shop connect_timeout=5"
        return subprocess.run(["psql", "-X", "-A", "-t", "-c", sql, place], capture_output=True, text=True).stdout.splitlines()

    def test_pages_show_and_save(self):
        with self.crowd.at_work():
            self.crowd.wait_for_steps(20)

    def test_pages_that_only_show_read_from_the_replica(self):
        self.pair.wait_for_replica()
        reader = PatientKeeper(self.site.front.port, 1, self.stock.articles(1), [], "&read=1")
        for _ in range(10):
            reader.turn()
            reader.sort()
        reader.fill_in(reader.articles[0], 77)
        with self.assertRaisesRegex(Failed, "cannot execute UPDATE in a read-only transaction"):
            reader.save(reader.articles[0], 77)

    def test_a_save_that_another_one_was_faster_than_can_be_saved_again(self):
        """Where transactions must not see what others have changed since they began."""
        self.set_isolation("repeatable read")
        try:
            save = Save(self.keepers[0])
            number, _, amount = save.article
            with Rival(self.stock, number):
                save.start()
                waiting = "SELECT pid FROM pg_stat_activity WHERE usename = 'shop_pages' AND wait_event_type = 'Lock'"
                deployed_site.wait_until(lambda: self.stock.rows(waiting), "the save does not wait")
            self.ledger.append(("UPDATE", number, amount))
            save.join()
            save.press_again_after_conflict()
        finally:
            self.set_isolation("read committed")

    def set_isolation(self, level):
        """Of all that pages do from now on, over new connections."""
        self.stock.ask(f"ALTER ROLE shop_pages SET default_transaction_isolation = '{level}'")
        for pooler in self.poolers:
            pooler.stop()
            pooler.start()

    def test_pages_go_on_while_a_pooler_is_killed_and_returns(self):
        for pooler in self.poolers:
            with self.crowd.at_work(may_lose=True):
                self.crowd.wait_for_steps()
                self.crowd.has_settled.clear()
                interruption.crash(pooler)
                self.wait_until_settled()
                self.crowd.wait_for_steps()
                pooler.start()
                self.crowd.wait_for_steps()
            for keeper in self.keepers:
                self.assertLessEqual(len(keeper.lost), 1, keeper.lost)

    def test_pages_go_on_while_a_pooler_is_frozen_and_goes_on(self):
        """A worker that had a connection to it loses one request."""
        pooler = self.poolers[0]
        with self.crowd.at_work(may_lose=True):
            self.crowd.wait_for_steps()
            self.crowd.has_settled.clear()
            interruption.freeze(pooler)
            try:
                self.crowd.wait_for_steps_or_losses()
            finally:
                interruption.thaw(pooler)
                self.wait_until_settled()
            self.crowd.wait_for_steps(10)
        self.assertLessEqual(len(self.lost()), WORKERS, self.lost())

    def test_pages_recover_when_the_server_crashes_and_returns(self):
        self.interrupt(interruption.crash, lambda server: server.start())

    def test_pages_recover_when_the_server_is_frozen_and_goes_on(self):
        self.interrupt(interruption.freeze, interruption.thaw)

    def interrupt(self, stop, go_on):
        """Every keeper loses an answer meanwhile, and none afterwards."""
        with self.crowd.at_work(may_lose=True):
            self.crowd.wait_for_steps()
            self.crowd.has_settled.clear()
            stop(self.pair.primary)
            try:
                self.crowd.wait_for_losses()
            finally:
                go_on(self.pair.primary)
                self.wait_until_poolers_serve()
                self.wait_until_settled()
            self.crowd.wait_for_steps(10)
        for keeper in self.keepers:
            self.assertLessEqual(len(keeper.lost), 1, keeper.lost)
