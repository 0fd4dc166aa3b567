"""Directories with settings of their own under php-fpm: one worker hardens the pages of one of them and no others.

usage: user_ini_test.py PHP_FPM EXTENSION
"""

import json
import sys
import unittest

import fastcgi
import servers

PAGE = "<?php echo json_encode([(new Dralo\\DbView())->Hardened, ini_get('dralo.pool_size'), getmypid()]);"


class ADirectory(unittest.TestCase):
    def test_hardens_its_own_pages(self):
        with servers.Fpm(*arguments) as fpm:
            for name, settings in {"plain": "", "hard": "dralo.hardened=1\ndralo.pool_size=1\n"}.items():
                (fpm.folder / name).mkdir()
                (fpm.folder / name / "page.php").write_text(PAGE)
                (fpm.folder / name / ".user.ini").write_text(settings)
            answers = [self.ask(fpm, name) for name in ("plain", "hard", "plain", "hard")]
        hardened, pool_sizes, workers = zip(*answers)
        self.assertEqual(hardened, (False, True, False, True))
        # What belongs to the process stays with whoever starts it.
        self.assertEqual(set(pool_sizes), {"8"})
        self.assertEqual(len(set(workers)), 1)

    def ask(self, fpm, name):
        params = {"SCRIPT_FILENAME": f"{fpm.folder}/{name}/page.php", "DOCUMENT_ROOT": str(fpm.folder),
                  "SCRIPT_NAME": f"/{name}/page.php", "REQUEST_METHOD": "GET"}  # fmt: skip
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
