"""A PostgreSQL that follows another one."""

import deployed_site  # noqa: F401  finds the modules of the other tests
from database_servers import PASSWORD, USER, PostgreSql


class Replica(PostgreSql):
    """Follows the server on `primary_port` until it is promoted."""

    ready = b"ready to accept read-only connections"

    def __init__(self, primary_port):
        super().__init__()
        self.primary = f"host=127.0.0.1 port={primary_port} user={USER} password='{PASSWORD}'"

    def create_command(self):
        return [self.program("pg_basebackup"), "--dbname", self.primary, "--pgdata", self.data, "--write-recovery-conf",
                "--checkpoint=fast"]
