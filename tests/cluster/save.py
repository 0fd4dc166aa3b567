"""A click on Save of a keeper, while the test does something else."""

import threading

from patient_keeper import Failed


class Save(threading.Thread):
    """All that comes before the click is done at once."""

    def __init__(self, keeper):
        super().__init__()
        self.keeper = keeper
        self.failure = None
        keeper.may_lose = False
        keeper.back()
        self.article, self.amount = keeper.articles[0], keeper.new_amount()
        keeper.fill_in(self.article, self.amount)

    def run(self):
        try:
            self.keeper.save(self.article, self.amount)
        except Failed as failure:
            self.failure = failure

    def press_again_after_conflict(self):
        """In the form that told of it. Where the provider has repeated the save by itself, there is none."""
        if self.failure:
            assert self.failure.is_conflict(), self.failure
            self.keeper.page = self.failure.page
            self.keeper.save(self.article, self.amount)
        self.keeper.back()
