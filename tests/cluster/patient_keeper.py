"""A keeper whose pages say now and then that the database has failed, or that a save met another one."""

import re

import deployed_site  # noqa: F401  finds the modules of the other tests
from keeper import Keeper, Lost
from visitor import Page


class Failed(Lost):
    """The page says what the database has said."""

    def __init__(self, message, text):
        super().__init__(message)
        self.page = Page(text)

    def is_conflict(self):
        """The database has undone the save as a whole, because another one came first."""
        return re.search(r"SQLSTATE 40(001|P01)", str(self)) is not None


class PatientKeeper(Keeper):
    def check_end(self, text):
        match = re.search(r'<p id="error">(.*?)</p>\n<!-- complete -->\n\Z', text.decode(), re.DOTALL)
        assert match, text[-500:]
        if match[1]:
            raise Failed(match[1], text.decode())

    def save(self, article, amount):
        """Where another save came first, the form that says so still holds what was typed."""
        try:
            super().save(article, amount)
        except Failed as failure:
            assert not failure.is_conflict() or failure.page.named("_Form_amount")["value"] == str(amount), failure.page.text
            raise

    def failures(self):
        """What was lost, other than to saves of others."""
        return [failure for failure in self.lost if not (isinstance(failure, Failed) and failure.is_conflict())]
