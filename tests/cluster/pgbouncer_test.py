"""One site on two hosts, each with a PgBouncer that gives every transaction another connection to PostgreSQL.

usage: pgbouncer_test.py EXTENSION
"""

import pathlib
import sys
import unittest

from pgbouncer import PgBouncer
import interruption
from pooled_site import PooledSite


class ASiteWithPgBouncer(PooledSite, unittest.TestCase):
    new_pooler = PgBouncer

    def test_pages_that_save_do_not_miss_the_replica(self):
        with self.crowd.at_work(may_lose=True):
            interruption.crash(self.pair.replica)
            try:
                self.crowd.wait_for_steps(10)
            finally:
                self.pair.replica.start()
            self.crowd.wait_for_steps()
        self.assertEqual(self.lost(), [])


if __name__ == "__main__":
    ASiteWithPgBouncer.extension = pathlib.Path(sys.argv[1]).resolve()
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
