"""Several keepers, all of them at work at once."""

import contextlib
import threading

import deployed_site


class Crowd:
    def __init__(self, keepers):
        self.keepers = keepers
        self.has_settled = threading.Event()
        self.has_settled.set()
        self.steps = dict.fromkeys(keepers, 0)
        self.failures = []

    @contextlib.contextmanager
    def at_work(self, may_lose=False):
        """While this lasts, all keepers are at work. Those who may lose an answer look for what became of it only when `has_settled`
        is set."""
        is_over = threading.Event()

        def work(keeper):
            keeper.may_lose, keeper.lost = may_lose, []
            try:
                keeper.wait_until_settled = self.has_settled.wait
                keeper.back()
                while not is_over.is_set():
                    keeper.step()
                    self.steps[keeper] += 1
            except BaseException as failure:  # noqa: BLE001  it is raised again by the test
                self.failures.append(failure)

        self.failures = []
        threads = [threading.Thread(target=work, args=[keeper]) for keeper in self.keepers]
        for thread in threads:
            thread.start()
        try:
            yield
        finally:
            is_over.set()
            self.has_settled.set()
            for thread in threads:
                thread.join()
        if self.failures:
            raise self.failures[0]

    def wait_for_steps(self, count=3):
        """Until each keeper has gone some steps further, or one has failed."""
        self.wait_for(self.has_gone(count))

    def wait_for_steps_or_losses(self, count=3):
        """Until each keeper has gone some steps further or lost an answer, or one has failed."""
        has_gone = self.has_gone(count)
        self.wait_for(lambda keeper: keeper.lost or has_gone(keeper))

    def wait_for_losses(self):
        """Until each keeper has lost an answer, or one has failed."""
        self.wait_for(lambda keeper: keeper.lost)

    def has_gone(self, count):
        wanted = {keeper: done + count for keeper, done in self.steps.items()}
        return lambda keeper: self.steps[keeper] >= wanted[keeper]

    def wait_for(self, has_come):
        deployed_site.wait_until(lambda: self.failures or all(map(has_come, self.keepers)), "the keepers stand still")
