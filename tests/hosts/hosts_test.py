"""What a page can do under every web server: be shown, saved, downloaded, left, and take an upload beside its view.

usage: hosts_test.py KIND EXTENSION, KIND one of web_hosts.WEB_HOSTS
"""

import hashlib
import http.client
import pathlib
import re
import sys
import time
import unittest
import urllib.parse

import web_hosts

sys.path.append(str(pathlib.Path(__file__).parents[1] / "pages"))

from visitor import Page  # noqa: E402

PATIENCE_S = web_hosts.PATIENCE_S
BOUNDARY = "limit-of-parts"


class APage(unittest.TestCase):
    arguments = []

    @classmethod
    def setUpClass(cls):
        kind, extension = cls.arguments
        cls.host = web_hosts.WEB_HOSTS[kind](extension)
        cls.host.__enter__()
        cls.addClassCleanup(cls.host.__exit__)

    def ask(self, query="", body=None, kind="application/x-www-form-urlencoded"):
        connection = http.client.HTTPConnection("127.0.0.1", self.host.port, timeout=PATIENCE_S)
        headers = {} if body is None else {"Content-Type": kind, "Origin": f"http://127.0.0.1:{self.host.port}"}
        connection.request("GET" if body is None else "POST", f"/goods.php?{query}", body, headers)
        answer = connection.getresponse()
        content = answer.read()
        connection.close()
        return answer, content

    def show(self, query=""):
        answer, content = self.ask(query)
        self.assertEqual(answer.status, 200)
        return Page(content.decode())

    def assert_serves(self):
        page = self.show()
        self.assertEqual(len(page.rows), 20)
        self.assertIn('<p id="error"></p>', page.text)
        self.assertIn(f'<p id="sapi">{self.host.sapi}</p>', page.text)

    def test_is_shown(self):
        self.assert_serves()

    def test_saves_a_record_and_leads_to_it(self):
        form = self.show("Morvu1FormDisplay=formOneRec&Morvu1FormEdit=1&Morvu1PK=7")
        fields = [(control["name"], control["value"]) for control in form.controls
                  if control.get("type") not in ("submit", "button", "image") and control.get("name")]
        fields = [(name, "a horn" if name.endswith("_Form_Name") else value) for name, value in fields]
        answer, _ = self.ask(body=urllib.parse.urlencode([*fields, ("Morvu1FormUpdate", "Save")]))
        self.assertEqual(answer.status, 303)
        page = self.show(urllib.parse.urlsplit(answer.headers["Location"]).query)
        self.assertIn("a horn", page.text)
        self.assertIn("[Record saved ok]", page.text)

    def test_says_that_a_record_is_not_there(self):
        answer, content = self.ask("Morvu1FormDisplay=formOneRec&Morvu1PK=999999")
        self.assertNotIn(b"good 7", content)
        self.assertEqual(answer.status, 404)

    def test_is_downloaded_as_a_whole(self):
        answer, content = self.ask("Morvu1ToExcel.x=1")
        self.assertEqual(answer.headers["Content-Type"], "application/vnd.ms-excel")
        self.assertEqual(answer.headers["Content-Disposition"], "attachment; filename=DraloExcelExport.xls")
        self.assertEqual(content.count(b"</tr>"), web_hosts.ROWS + 1)
        self.assertTrue(content.endswith(b"</table>"), content[-80:])

    def test_is_left_in_the_middle_of_its_download(self):
        with self.host.connect() as visitor:
            visitor.sendall(b"GET /goods.php?Morvu1ToExcel.x=1 HTTP/1.0\r\n\r\n")
            self.assertTrue(visitor.recv(1000))
            self.assertTrue(self.host.is_locked(), "this test proves nothing: the download was over already")
        deadline = time.monotonic() + PATIENCE_S
        while self.host.is_locked() and time.monotonic() < deadline:
            time.sleep(0.01)
        self.assertFalse(self.host.is_locked(), "the database is still locked")
        self.assert_serves()

    def test_takes_an_upload_beside_its_view(self):
        picture = bytes(range(256)) * 4000
        parts = [("Morvu1CurrRecord", None, b"41"), ("caption", None, "ein Stück".encode()),
                 ("picture", "horn.gif", picture)]
        body = b""
        for name, file, value in parts:
            place = f'; filename="{file}"\r\nContent-Type: image/gif' if file else ""
            body += f'--{BOUNDARY}\r\nContent-Disposition: form-data; name="{name}"{place}\r\n\r\n'.encode()
            body += value + b"\r\n"
        body += f"--{BOUNDARY}--\r\n".encode()
        answer, content = self.ask(body=body, kind=f"multipart/form-data; boundary={BOUNDARY}")
        self.assertEqual(answer.status, 200)
        said = re.search(r'<p id="picture">(.*)</p>', content.decode())[1]
        self.assertEqual(said, f"horn.gif {hashlib.sha256(picture).hexdigest()} ein Stück")
        self.assertEqual(Page(content.decode()).rows[0][1], "41")


if __name__ == "__main__":
    APage.arguments = sys.argv[1:3]
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
