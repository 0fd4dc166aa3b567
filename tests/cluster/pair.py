"""A PostgreSQL with the site's articles and a replica of it."""

import pathlib
import shutil
import sys
import tempfile

HERE = pathlib.Path(__file__).parent
sys.path += [str(HERE.parent / "deploy"), str(HERE.parent / "support"), str(HERE.parent / "pages")]

import deployed_site  # noqa: E402
from database_servers import PostgreSql  # noqa: E402
from replica import Replica  # noqa: E402
from stock import Stock  # noqa: E402


class Primary(PostgreSql):
    """What it has confirmed outlives a crash, though not one of the machine."""

    settings = PostgreSql.settings | {"synchronous_commit": "on"}


class Pair:
    """A context."""

    def __enter__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-shop-"))
        self.primary = self.replica = None
        try:
            self.primary = Primary()
            self.primary.create()
            self.primary.start()
            self.stock = Stock(self.folder, self.primary)
            self.replica = Replica(self.primary.port)
            self.replica.create()
            self.replica.start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for server in (self.replica, self.primary):
            if server:
                server.remove()
        shutil.rmtree(self.folder)

    def wait_for_replica(self):
        """Until it has what the primary has now."""
        [[position]] = self.stock.rows("SELECT pg_current_wal_lsn()")
        caught_up = f"SELECT replay_lsn >= '{position}' FROM pg_stat_replication"
        deployed_site.wait_until(lambda: self.stock.rows(caught_up) == [("1",)], "the replica does not follow")
