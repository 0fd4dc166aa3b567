"""One site on two hosts, each with a pgpool-II that leads to PostgreSQL and its replica.

usage: pgpool_test.py EXTENSION
"""

import pathlib
import sys
import unittest

from pgpool import Pgpool
import deployed_site
import interruption
from pooled_site import PooledSite


class ASiteWithPgpool(PooledSite, unittest.TestCase):
    new_pooler = Pgpool

    def test_pages_that_save_go_on_when_the_replica_was_left_out_and_when_it_is_back(self):
        """A keeper loses at most a request each time: when the pooler leaves the replica out, and when it takes it back."""
        with self.crowd.at_work(may_lose=True):
            self.crowd.has_settled.clear()
            interruption.crash(self.pair.replica)
            try:
                self.wait_until_replica_is("down")
                self.wait_until_poolers_serve()
                self.wait_until_settled()
                self.crowd.wait_for_steps()
            finally:
                self.crowd.has_settled.set()
                self.pair.replica.start()
            self.wait_until_replica_is("up")
            self.crowd.wait_for_steps(10)
        for keeper in self.keepers:
            self.assertLessEqual(len(keeper.lost), 2, keeper.lost)

    def wait_until_replica_is(self, status):
        for pooler in self.poolers:
            deployed_site.wait_until(lambda: self.sees_replica(pooler) == status, f"it is not {status}")  # noqa: B023

    def sees_replica(self, pooler):
        """As the pooler itself sees it."""
        nodes = [row.split("|") for row in self.ask(pooler, "SHOW POOL_NODES")]
        return next((node[3] for node in nodes if node[0] == "1"), None)


if __name__ == "__main__":
    ASiteWithPgpool.extension = pathlib.Path(sys.argv[1]).resolve()
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
