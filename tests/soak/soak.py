#!/usr/bin/python3 -B
"""Asks four workers of php-fpm for many pages of every kind, saves included, and looks whether anything grows or gets lost.

    tests/soak/soak.py DATABASE EXTENSION [REQUESTS]

DATABASE is one of shops.SHOPS, such as sqlite or postgresql; EXTENSION the file dralo.so; REQUESTS 100000 when left out. A server of a
database is stopped and started in the middle. Says what it has measured, and fails when
- an answer was not as it should be, other than to a request in flight while the server was away,
- the database does not hold what the customers were told that it holds,
- a worker's memory has grown by 1 MiB or more since it was warm, after a fifth of the requests, or it holds more files, or
  more statements than a connection keeps,
- the server has more connections than there are workers, or one that is not idle.
"""

import contextlib
import multiprocessing
import pathlib
import shutil
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).parent
sys.path += [str(HERE.parent / "pages"), str(HERE.parent / "support")]

import shops  # noqa: E402
from database_servers import end_in_order, end_with_parent  # noqa: E402
from customer import Customer  # noqa: E402
from php_programs import php_program  # noqa: E402
from workers import Workers  # noqa: E402

PHP, PHP_FPM = php_program("php"), php_program("php-fpm")
WORKERS = 4
CUSTOMERS = 6
MEMORY_GROWTH_KIB = 1024
OUTAGE_S = 0.5
PATIENCE_S = 60
SHOWN_FAILURES = 5

# A session keeps 32 queries, each prepared for one row and for more.
PREPARED_STATEMENTS = 64

# What a worker's session has open, asked for by the session itself.
SESSION_COUNTS = {"postgresql": ["SELECT count(*) AS n FROM pg_prepared_statements", "SELECT count(*) AS n FROM pg_cursors"]}
NOTHING = "SELECT 0 AS n"  # Sees to it that every worker has its connection.
# What the server has, asked for from outside: all connections of pages, and those that are in the middle of something.
SERVER_COUNTS = {
    "postgresql": ("SELECT count(*), count(*) FILTER (WHERE state <> 'idle') FROM pg_stat_activity "
                   "WHERE backend_type = 'client backend' AND pid <> pg_backend_pid()"),
    "mariadb": ("SELECT count(*), (SELECT count(*) FROM information_schema.innodb_trx) FROM information_schema.processlist "
                "WHERE user = 'dralo' AND id <> connection_id()"),
}
STATEMENTS_OF_MARIADB = "SELECT variable_value FROM information_schema.global_status WHERE variable_name = 'PREPARED_STMT_COUNT'"


class Crowd:
    """The customers, each in a process of its own."""

    def __init__(self, workers, marks):
        self.is_over = multiprocessing.Event()
        self.has_failed = multiprocessing.Event()
        self.pipes = []
        self.processes = []
        for number in range(CUSTOMERS):
            mine, theirs = multiprocessing.Pipe()
            customer = Customer(workers, number, CUSTOMERS, marks)
            process = multiprocessing.Process(target=self.serve, args=[customer, theirs], daemon=True)
            process.start()
            self.processes.append(process)
            self.pipes.append(mine)

    def serve(self, customer, pipe):
        end_with_parent()
        while order := pipe.recv():
            if isinstance(order, dict):
                pipe.send(list(customer.differences(order)))
                continue
            done = 0
            while done < order and not self.is_over.is_set():
                customer.act()
                done += 1
                if customer.failures:
                    self.has_failed.set()
                    time.sleep(0.01)  # While there is no database, requests fail faster than they succeed.
            pipe.send((done, customer.failures))
            customer.failures = []

    def begin(self, number):
        self.is_over.clear()
        self.has_failed.clear()
        for pipe in self.pipes:
            pipe.send(number // CUSTOMERS)

    def end(self):
        """How many requests were made, and the failures."""
        answers = [pipe.recv() for pipe in self.pipes]
        return sum(done for done, _ in answers), [failure for _, failures in answers for failure in failures]

    def differences(self, marks):
        for pipe in self.pipes:
            pipe.send(marks)
        return [difference for pipe in self.pipes for difference in pipe.recv()]

    def leave(self):
        """At once, whatever they are doing: as long as they live, they hold what this process has open."""
        for process in self.processes:
            process.kill()
            process.join()


class Soak:
    def __init__(self, kind, extension, requests):
        self.kind = kind
        self.extension = extension
        self.requests = requests
        self.problems = []
        self.made = 0

    def run(self):
        folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-soak-"))
        with contextlib.ExitStack() as cleanup:
            cleanup.callback(shutil.rmtree, folder)
            shutil.copy(HERE / "served/goods.php", folder)
            shutil.copy(HERE.parent / "pages/served/run.php", folder)
            self.shop = shops.SHOPS[self.kind](folder)
            cleanup.callback(getattr(self.shop, "close", lambda: None))
            self.shop.create([PHP, "-n", "-d", f"extension={self.extension}"])
            self.workers = cleanup.enter_context(Workers(PHP_FPM, self.extension, folder, WORKERS))
            self.crowd = Crowd(self.workers, self.marks())
            cleanup.callback(self.crowd.leave)
            self.measure_all()
            complaints = self.workers.complaints()
        self.expect(not complaints, complaints)

    def measure_all(self):
        start = time.monotonic()
        warming_up = max(self.requests // 5, min(1000, self.requests // 2))
        rest = self.requests - warming_up
        self.work(warming_up)
        before = self.look({})
        self.work(rest // 2)
        if self.kind in SERVER_COUNTS:
            self.restart_server()
        self.work(rest - rest // 2)
        after = self.look(before[0])
        for difference in self.crowd.differences(self.marks()):
            self.problems.append(difference)
        seconds = time.monotonic() - start
        print(f"{self.kind}: {self.made} requests in {seconds:.0f} s, {self.made / seconds:.0f} a second")
        self.compare(before, after)

    def work(self, number):
        self.crowd.begin(number)
        made, failures = self.crowd.end()
        self.made += made
        self.fail(failures)

    def restart_server(self):
        """In the middle of the work. What began before the server was back may have failed."""
        self.crowd.begin(sys.maxsize)
        stop = time.monotonic()
        self.shop.server.stop()
        time.sleep(OUTAGE_S)
        self.crowd.has_failed.wait(PATIENCE_S)
        self.shop.server.start()
        back = time.monotonic()
        time.sleep(0.5)
        self.crowd.is_over.set()
        made, failures = self.crowd.end()
        self.made += made
        self.fail([failure for failure in failures if failure[0] >= back or failure[1] <= stop])
        in_flight = [failure for failure in failures if failure[0] < back and failure[1] > stop]
        self.expect(in_flight, "nothing failed while the server was away: this proves nothing")
        print(f"{self.kind}: the server was away for {back - stop:.1f} s, in which {len(in_flight)} requests failed; "
              f"the longest took {max(end - begin for begin, end, _ in in_flight):.1f} s")

    def look(self, before):
        """What the workers hold and what the server has, at rest. `before` is what they held at the last look."""
        counts = [self.workers.ask_all(b"count=" + count.replace(" ", "+").encode())
                  for count in SESSION_COUNTS.get(self.kind, [NOTHING])]
        sessions = [tuple(int(answers[pid]) for answers in counts) for pid in self.workers.pids()]
        server = None
        if self.kind in SERVER_COUNTS:
            [row] = self.shop.rows(SERVER_COUNTS[self.kind])
            server = tuple(map(int, row))
        return self.workers.held(before), sessions, server, self.statements()

    def statements(self):
        return int(self.shop.rows(STATEMENTS_OF_MARIADB)[0][0]) if self.kind == "mariadb" else 0

    def compare(self, before, after):
        held_before, sessions_before, _, _ = before
        held_after, sessions_after, server, statements = after
        self.expect(held_before.keys() == held_after.keys(), "a worker has died")
        for pid in held_before.keys() & held_after.keys():
            then, now = held_before[pid], held_after[pid]
            print(f"{self.kind}: worker {pid} held {then.memory_kib} KiB and {then.files} files, at the end "
                  f"{now.memory_kib} KiB ({now.memory_kib - then.memory_kib:+}) and {now.files} files")
            self.expect(now.memory_kib - then.memory_kib < MEMORY_GROWTH_KIB, f"the memory of worker {pid} grows")
            self.expect(now.files <= then.files, f"worker {pid} holds more files")
        if server:
            connections, busy = server
            print(f"{self.kind}: {connections} connections, {busy} of them busy; statements and cursors of the sessions "
                  f"{sessions_after}, of the server {statements}")
            self.expect(connections <= WORKERS, f"{connections} connections for {WORKERS} workers")
            self.expect(busy == 0, f"{busy} connections are not idle")
        if self.kind in SESSION_COUNTS:
            prepared, cursors = map(max, zip(*sessions_after))
            self.expect(prepared <= PREPARED_STATEMENTS, f"sessions hold {prepared} prepared statements")
            self.expect(cursors <= max(before for _, before in sessions_before), f"sessions hold {cursors} cursors")
        self.expect(statements <= WORKERS * PREPARED_STATEMENTS, f"the server holds {statements} prepared statements")

    def marks(self):
        return {int(good): None if mark == "NULL" else int(mark) for good, mark in self.shop.rows("SELECT ID, Big FROM Goods")}

    def fail(self, failures):
        self.problems += [f"after {end - begin:.3f} s: {what}" for begin, end, what in failures]

    def expect(self, is_so, problem):
        if not is_so:
            self.problems.append(problem)


def main(kind, extension, requests="100000"):
    end_in_order()
    soak = Soak(kind, pathlib.Path(extension).resolve(), int(requests))
    soak.run()
    for problem in soak.problems[:SHOWN_FAILURES]:
        print(f"{kind}: {problem}", file=sys.stderr)
    if soak.problems:
        sys.exit(f"{kind}: {len(soak.problems)} problems")


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4) or sys.argv[1] not in shops.SHOPS:
        sys.exit(__doc__)
    main(*sys.argv[1:])
