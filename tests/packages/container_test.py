#!/usr/bin/env python3
"""The image of deploy/oci/Containerfile: its steps are carried out in bare systems of SUITE, and the result serves a page.

usage: container_test.py SUITE [FOLDER] [TEST...]      as debian_test.py
"""

import re
import shutil
import sys

from container_steps import Stage, stages
from debian_systems import ROOT, DebianSystems, run

sys.path += [str(ROOT / "tests/pages"), str(ROOT / "tests/release")]

from fastcgi import Request  # noqa: E402
from own_repository import Repository  # noqa: E402


class Container(DebianSystems):
    def made(self):
        """The last stage, after all of them."""
        steps = (ROOT / "deploy/oci/Containerfile").read_text()
        if "noopt" in self.options:
            steps, count = re.subn('DEB_BUILD_OPTIONS="', 'DEB_BUILD_OPTIONS="noopt ', steps)
            self.assertEqual(count, 1)
        project = Repository.of_these_files(self.folder / "project").folder
        shutil.rmtree(project / ".git")
        roots = {}
        for image, name, instructions in stages(steps):
            self.assertEqual(image, f"docker.io/library/debian:{self.suite}")
            roots[name] = self.bare.copy(self.folder / f"stage-{name or 'last'}")
            self.addCleanup(roots[name].remove)
            stage = Stage(roots[name], project, roots)
            stage.carry_out(instructions)
        return stage

    def test_serves_the_example_site(self):
        container = self.made()
        self.assertEqual(container.user, "www-data")
        self.assertIn(b'id="drl1row_1"', self.page_of(container))

    def page_of(self, container):
        settings = container.root.inside("/etc/dralo/php-fpm.conf")
        settings.write_text(settings.read_text().replace(f"listen = {container.port}\n", "listen = /tmp/pages.sock\n"))
        server, output = container.root.start(container.user, container.command)
        self.addCleanup(self.end, server, output)
        said = ""
        while "ready to handle connections" not in said:
            line = output.readline()
            self.assertTrue(line, said)
            said += line
        page = {"SCRIPT_FILENAME": b"/srv/dralo/site/customers.php", "SCRIPT_NAME": b"/customers.php", "REQUEST_METHOD": b"GET",
                "REQUEST_URI": b"/customers.php"}
        request = Request(str(container.root.inside("/tmp/pages.sock")), page)
        self.addCleanup(request.leave)
        return request.read()

    @staticmethod
    def end(server, output):
        server.terminate()
        server.wait(60)
        output.close()


if __name__ == "__main__":
    run()
