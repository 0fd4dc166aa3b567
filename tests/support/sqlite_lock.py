"""Whether somebody holds a lock on an SQLite file."""

import sqlite3


def is_locked(file):
    """Whether another process cannot lock the whole database at this moment."""
    database = sqlite3.connect(file, timeout=0, isolation_level=None)
    try:
        database.execute("BEGIN EXCLUSIVE")
        database.execute("ROLLBACK")
        return False
    except sqlite3.OperationalError as error:
        if "locked" not in str(error):
            raise
        return True
    finally:
        database.close()
