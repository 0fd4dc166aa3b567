"""One site on two hosts in front of one PostgreSQL: requests alternate, hosts are reloaded, taken out, killed and started
again. No page and no save gets lost.

usage: two_hosts_test.py EXTENSION
"""

import collections
import contextlib
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import unittest
import urllib.error
import urllib.request

import deployed_site
from crowd import Crowd
from keeper import Keeper, Lost
from stock import OWNERS, Stock

class RowLock:
    """Another client of the database who holds a row; a context."""

    def __init__(self, stock, article):
        command, environment = stock.client_command()
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, env=environment)
        self.process.stdin.write(f"BEGIN;\nSELECT FROM Articles WHERE ID = {article} FOR UPDATE;\n\\echo held\n")

    def __enter__(self):
        self.process.stdin.flush()
        while "held" not in self.process.stdout.readline():
            pass
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.wait()
        self.process.stdout.close()


class Save(threading.Thread):
    """A keeper's click on Save, with all that comes before it done at once."""

    def __init__(self, keeper):
        super().__init__()
        self.keeper = keeper
        self.failure = None
        self.article = keeper.articles[0]
        self.amount = keeper.new_amount()
        keeper.fill_in(self.article, self.amount)

    def run(self):
        try:
            self.keeper.save(self.article, self.amount)
            self.keeper.back()
        except BaseException as failure:  # noqa: BLE001  the test looks at it
            self.failure = failure

    def repeat(self):
        self.failure = None
        self.keeper.fill_in(self.article, self.amount)
        self.run()
        if self.failure:
            raise self.failure


class TwoHosts(unittest.TestCase):
    extension = None

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-shop-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.stock = Stock(cls.folder)
        cls.addClassCleanup(cls.stock.close)
        cls.site = deployed_site.Site(cls.extension, deployed_site.HERE / "served/articles.php",
                                      {name: cls.connections(name) for name in ("first", "second")})
        cls.site.__enter__()
        cls.addClassCleanup(cls.site.__exit__)
        cls.front = cls.site.front
        cls.ledger = []
        cls.keepers = [Keeper(cls.front.port, owner, cls.stock.articles(owner), cls.ledger) for owner in OWNERS]
        cls.crowd = Crowd(cls.keepers)

    @classmethod
    def connections(cls, host):
        """The database is told which host it is talking to."""
        place = f"Host=127.0.0.1;Port={cls.stock.server.port};Application Name={host}"
        return {"DRALO_DATABASE": cls.stock.connection_of("shop_pages", place),
                "DRALO_READ_DATABASE": cls.stock.connection_of("shop_reader", place)}

    def tearDown(self):
        """Nothing got lost: the database holds what the keepers know, and every save that they saw happen happened once."""
        for keeper in self.keepers:
            self.assertEqual(self.stock.articles(keeper.owner), sorted(keeper.articles))
        self.assertEqual(collections.Counter(self.stock.saves()), collections.Counter(self.ledger))
        self.assertEqual([host.take_complaints() for host in self.site.hosts], [[], []])

    def count_answers(self, host, since):
        return sum(host.address in addresses for addresses in self.front.answers()[since:])

    def wait_for_answers(self, *hosts):
        """Until each of the hosts has been asked some more by the visitors. Returns the number of the first of these answers."""
        since = len(self.front.answers())
        for host in hosts:
            deployed_site.wait_until(lambda: self.count_answers(host, since) > 5, f"{host.name} is not asked")  # noqa: B023
        return since

    def wait_until_passed_on(self, host):
        """Until a request that `host` did not take has been passed on to another one."""
        since = len(self.front.answers())
        deployed_site.wait_until(
            lambda: any(addresses[0] == host.address and len(addresses) > 1 for addresses in self.front.answers()[since:]),
            "no request was passed on")

    def kill(self, host):
        """What the host has begun is over at the end, and keepers who have lost an answer look only then."""
        self.crowd.has_settled.clear()
        host.stop(signal.SIGTERM)
        sessions = f"SELECT pid FROM pg_stat_activity WHERE application_name = '{host.name}'"
        deployed_site.wait_until(lambda: not self.stock.rows(sessions), "the database does not notice that a host is gone")
        self.crowd.has_settled.set()

    def test_requests_alternate_between_the_hosts(self):
        since = len(self.front.answers())
        keeper = self.keepers[0]
        keeper.may_lose = False
        for _ in range(10):
            keeper.step()
        hosts = [addresses[0] for addresses in self.front.answers()[since:]]
        self.assertGreater(len(hosts), 10)
        for one, next_one in zip(hosts, hosts[1:]):
            self.assertNotEqual(one, next_one)

    def test_hosts_speak_to_the_database_encrypted(self):
        for keeper in self.keepers:
            keeper.back()
        pages = "SELECT application_name, ssl FROM pg_stat_ssl JOIN pg_stat_activity USING (pid) WHERE usename = 'shop_pages'"
        self.assertEqual(set(self.stock.rows(pages)), {("first", "1"), ("second", "1")})

    def test_nothing_is_lost_while_hosts_are_reloaded(self):
        with self.crowd.at_work():
            for host in self.site.hosts * 2:
                self.wait_for_answers(host)
                host.begin_reload()()

    def test_nothing_is_lost_while_hosts_are_taken_out_stopped_and_started(self):
        with self.crowd.at_work():
            for host, other in (self.site.hosts, reversed(self.site.hosts)):
                self.front.use(other)
                host.stop()
                since = self.wait_for_answers(other)
                self.assertEqual(self.count_answers(host, since), 0)
                host.start()
                self.front.use(host, other)
            self.wait_for_answers(*self.site.hosts)

    def test_what_is_lost_when_a_host_is_killed_can_be_repeated(self):
        with self.crowd.at_work(may_lose=True):
            for host in self.site.hosts:
                self.wait_for_answers(host)
                self.kill(host)
                self.wait_until_passed_on(host)
                host.start()
                self.wait_for_answers(host)

    def test_a_save_in_flight_is_finished_while_its_host_is_reloaded(self):
        with self.save_in_flight(self.keepers[1]) as (host, save):
            seen = host.log.stat().st_size
            wait_until_reloaded = host.begin_reload()
            host.wait_until_said(b"Reloading in progress", seen)
            self.assertTrue(save.is_alive(), "this test proves nothing: the save was over already")
        wait_until_reloaded()
        self.assertIsNone(save.failure)

    def test_a_save_in_flight_is_finished_before_its_host_stops(self):
        with self.save_in_flight(self.keepers[2]) as (host, save):
            seen = host.log.stat().st_size
            host.process.send_signal(host.unit.stop)
            host.wait_until_said(b"Finishing", seen)
            self.assertTrue(save.is_alive(), "this test proves nothing: the save was over already")
        self.assertIsNone(save.failure)
        host.stop()
        host.start()

    def test_a_save_in_flight_is_not_tried_on_another_host_when_its_own_is_killed(self):
        since = len(self.front.answers())
        with self.save_in_flight(self.keepers[3]) as (host, save):
            host.stop(signal.SIGTERM)
            save.join()
        self.assertIsInstance(save.failure, Lost)
        self.assertEqual(self.front.answers()[-1], [host.address])
        self.assertGreater(len(self.front.answers()), since)
        host.start()
        save.repeat()

    @contextlib.contextmanager
    def save_in_flight(self, keeper):
        """A save that waits for another client of the database while this lasts, and the host that has it."""
        keeper.may_lose = False
        save = Save(keeper)
        with RowLock(self.stock, save.article[0]):
            save.start()
            waiting = "SELECT application_name FROM pg_stat_activity WHERE wait_event_type = 'Lock'"
            deployed_site.wait_until(lambda: self.stock.rows(waiting), "the save does not wait")
            [[name]] = self.stock.rows(waiting)
            yield next(host for host in self.site.hosts if host.name == name), save
        save.join()

    def test_the_health_page_follows_the_database_and_pages_recover_at_once(self):
        self.assertEqual([self.health() for _ in range(2)], [(200, b"well\n")] * 2)
        self.stock.server.stop()
        try:
            self.assertEqual([self.health() for _ in range(2)], [(503, b"no database\n")] * 2)
        finally:
            self.stock.server.start()
        for host in self.site.hosts:
            host.wait_for_complaint()
            [complaint] = host.take_complaints()
            self.assertIn("Connection refused", complaint)
        with self.crowd.at_work():
            self.wait_for_answers(*self.site.hosts)

    def health(self):
        address = f"http://127.0.0.1:{self.front.port}/health.php"
        try:
            with urllib.request.urlopen(address, timeout=30) as answer:
                return answer.status, answer.read()
        except urllib.error.HTTPError as answer:
            with answer:
                return answer.code, answer.read()


if __name__ == "__main__":
    TwoHosts.extension = pathlib.Path(sys.argv[1]).resolve()
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
