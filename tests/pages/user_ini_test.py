"""Directories with settings of their own under php-fpm, whose one worker serves the pages of all.

usage: user_ini_test.py PHP_FPM EXTENSION
"""

import json
import shutil
import sys
import unittest

import fastcgi
import servers

HARDENED = "<?php echo json_encode([(new Dralo\\DbView())->Hardened, ini_get('dralo.pool_size'), getmypid()]);"
NUMBER = """<?php
try {
    $view = new Dralo\\DbView();
    if (isset($_GET['there_and_back'])) { $view->Locale = 'en-US'; $view->Locale = ''; }
    $view->ConnectionString = 'Provider=SQLite;Data Source=:memory:';
    $view->sql = 'SELECT 1.5 AS Number';
    ob_start();
    $view->WriteHtmlTable();
    preg_match('/1[.,]5/', ob_get_clean(), $found);
} catch (Exception $error) {
    $found = [$error->getMessage()];
}
echo json_encode([$found[0], getmypid()]);
"""


class ADirectory(unittest.TestCase):
    def answers(self, page, settings_of, asked, system=(), query=""):
        """What the page says in each of the asked directories, as one worker answers."""
        server = servers.Fpm(*arguments, *system)
        for name, settings in settings_of.items():
            (server.folder / name).mkdir()
            (server.folder / name / "page.php").write_text(page)
            (server.folder / name / ".user.ini").write_text(settings)
        # The worker begins with a page that has the settings of the first one.
        shutil.copy(server.folder / asked[0] / ".user.ini", server.folder)
        with server as fpm:
            *answers, workers = zip(*(self.ask(fpm, name, query) for name in asked))
        self.assertEqual(len(set(workers)), 1)
        return answers

    def test_hardens_its_own_pages(self):
        settings = {"plain": "", "hard": "dralo.hardened=1\ndralo.pool_size=1\n"}
        hardened, pool_sizes = self.answers(HARDENED, settings, ("plain", "hard", "plain", "hard"))
        self.assertEqual(hardened, (False, True, False, True))
        # What belongs to the process stays with whoever starts it.
        self.assertEqual(set(pool_sizes), {"8"})

    def test_writes_numbers_in_its_own_locale(self):
        settings = {"norwegian": "dralo.locale=nb-NO\n", "plain": "", "english": "dralo.locale=en-US\n"}
        asked = ("norwegian", "plain", "english", "norwegian", "plain", "english")
        for system, query, plain in (((), "", "1.5"), (["dralo.locale=de-DE"], "", "1,5"), ((), "there_and_back", "1.5")):
            with self.subTest(system=system, query=query):
                self.assertEqual(self.answers(NUMBER, settings, asked, system, query),
                                 [("1,5", plain, "1.5", "1,5", plain, "1.5")])

    def test_has_no_other_locale_than_those_that_are_known(self):
        settings = {"wrong": "dralo.locale=nowhere at all\n", "plain": ""}
        [(wrong, right)] = self.answers(NUMBER, settings, ("wrong", "plain"))
        self.assertIn('The locale "nowhere at all" is not known', wrong)
        self.assertEqual(right, "1.5")

    def ask(self, fpm, name, query):
        params = {"SCRIPT_FILENAME": f"{fpm.folder}/{name}/page.php", "DOCUMENT_ROOT": f"{fpm.folder}/{name}",
                  "SCRIPT_NAME": f"/{name}/page.php", "REQUEST_METHOD": "GET", "QUERY_STRING": query}  # fmt: skip
        request = fastcgi.Request(fpm.address, {key: value.encode() for key, value in params.items()})
        try:
            page = request.read().partition(b"\r\n\r\n")[2].decode()
        finally:
            request.leave()
        self.assertTrue(page.startswith("["), page)
        return json.loads(page)


if __name__ == "__main__":
    arguments = sys.argv[1:]
    unittest.main(argv=sys.argv[:1], verbosity=2)
