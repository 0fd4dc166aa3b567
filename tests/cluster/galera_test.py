"""One site on two hosts with a MariaDB cluster of three nodes, each of which can be written to. A node that is killed, returns or is
frozen costs only the requests that it was serving; no save is lost and none happens twice.

usage: galera_test.py EXTENSION
"""

import collections
import pathlib
import shutil
import signal
import sys
import tempfile
import unittest

from galera import Cluster
from galera_stock import GaleraStock
from gate import Gate
import deployed_site
import interruption
from crowd import Crowd
from database_servers import PASSWORD, USER
from patient_keeper import PatientKeeper
from save import Save

OWNERS = (1, 2, 3, 4)
WORKERS = 6


class ASiteWithGalera(unittest.TestCase):
    extension = None

    @classmethod
    def setUpClass(cls):
        folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-shop-"))
        cls.addClassCleanup(shutil.rmtree, folder)
        cls.cluster = cls.enterClassContext(Cluster())
        cls.stock = GaleraStock(folder, cls.cluster)
        cls.site = cls.enterClassContext(deployed_site.Site(
            cls.extension, deployed_site.HERE / "served/articles.php",
            {"first": cls.connections(*cls.cluster.nodes), "second": cls.connections(*reversed(cls.cluster.nodes))}))
        cls.ledger = []
        cls.keepers = [PatientKeeper(cls.site.front.port, owner, cls.stock.articles(owner), cls.ledger) for owner in OWNERS]
        cls.crowd = Crowd(cls.keepers)

    @staticmethod
    def connections(*nodes):
        """Each host has its own order of the nodes."""
        hosts = ",".join(f"127.0.0.1:{node.port}" for node in nodes)
        connection = (f"Provider=MariaDB;Hosts={hosts};Database=shop;User ID={USER};Password={{{PASSWORD}}};"
                      "Connect Timeout=15;Query Timeout=25")
        return {"DRALO_DATABASE": connection, "DRALO_READ_DATABASE": connection}

    def setUp(self):
        """What a test before has left is no concern of the next one."""
        self.stock.ask("DELETE FROM Saves")
        self.ledger.clear()
        for keeper in self.keepers:
            keeper.articles = self.stock.articles(keeper.owner)

    def tearDown(self):
        """Nothing got lost: the database holds what the keepers know, and every save that they saw happen happened once."""
        for node in self.cluster.nodes:
            self.stock.server = node
            for keeper in self.keepers:
                self.assertEqual(self.stock.articles(keeper.owner), sorted(keeper.articles))
            self.assertEqual(collections.Counter(self.stock.saves()), collections.Counter(self.ledger))
        for host in self.site.hosts:
            self.assertEqual(host.take_complaints(), [])

    def test_what_is_saved_on_one_node_is_shown_by_the_others_at_once(self):
        with self.crowd.at_work(may_lose=True):
            self.crowd.wait_for_steps(60)
        self.assert_lost_at_most(0)

    def test_pages_go_on_while_nodes_are_killed_and_return(self):
        """A keeper has one request in flight."""
        for node in self.cluster.nodes:
            with self.crowd.at_work(may_lose=True):
                self.crowd.wait_for_steps()
                self.crowd.has_settled.clear()
                node.end(signal.SIGKILL)
                self.cluster.wait_until_agreed(self.cluster.others(node))
                self.crowd.has_settled.set()
                self.crowd.wait_for_steps()
                node.start()
                self.cluster.wait_until_agreed(self.cluster.nodes)
                self.crowd.wait_for_steps()
            self.assert_lost_at_most(1)

    def test_pages_go_on_while_a_node_is_frozen_and_goes_on(self):
        """A worker that had a connection to it loses one request. When it goes on, it takes some time to notice that it was left out, and
        may cost each keeper another request."""
        node = self.cluster.nodes[0]
        with self.crowd.at_work(may_lose=True):
            self.crowd.wait_for_steps()
            self.crowd.has_settled.clear()
            interruption.freeze(node)
            try:
                self.cluster.wait_until_agreed(self.cluster.others(node))
                self.crowd.has_settled.set()
                self.crowd.wait_for_steps()
            finally:
                self.crowd.has_settled.clear()
                interruption.thaw(node)
                self.cluster.wait_until_agreed(self.cluster.nodes)
                self.crowd.has_settled.set()
            self.crowd.wait_for_steps(10)
        lost = [failure for keeper in self.keepers for failure in keeper.failures()]
        self.assertLessEqual(len(lost), WORKERS + len(self.keepers), lost)

    def test_pages_fail_and_save_nothing_while_one_node_of_three_is_left(self):
        first, second, last = self.cluster.nodes
        with self.crowd.at_work(may_lose=True):
            self.crowd.wait_for_steps()
            self.crowd.has_settled.clear()
            first.end(signal.SIGKILL)
            self.cluster.wait_until_agreed([second, last])
            second.end(signal.SIGKILL)
            try:
                self.crowd.wait_for_losses()
            finally:
                second.start()
                self.cluster.wait_until_agreed([second, last])
                first.start()
                self.cluster.wait_until_agreed(self.cluster.nodes)
                self.crowd.has_settled.set()
            self.crowd.wait_for_steps()
        self.assert_lost_at_most(1)

    def assert_lost_at_most(self, count):
        """Each keeper, not counting saves that another one was faster than."""
        for keeper in self.keepers:
            self.assertLessEqual(len(keeper.failures()), count, keeper.failures())

    def test_a_save_that_another_node_was_faster_than_can_be_saved_again(self):
        """On whichever node the save is."""
        first, between, last = self.cluster.nodes
        save = Save(self.keepers[0])
        number, _, amount = save.article
        with Gate(first, last) as gate:
            save.start()
            gate.wait_for_somebody()
            between.ask(f"UPDATE shop.Articles SET Views = 1 WHERE ID = {number}")
            self.ledger.append(("UPDATE", number, amount))
            gate.open()
            save.join()
        save.press_again_after_conflict()


if __name__ == "__main__":
    ASiteWithGalera.extension = pathlib.Path(sys.argv[1]).resolve()
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
