#!/usr/bin/python3 -B
"""Attacks the page for the public of docs/security.md with requests that read or change other tables than its own.

    attack_public_page.py DOCUMENT SHOP PHP_CGI EXTENSION

Each attack has to work on the page without its guard, or it would say nothing about the guard. The page may write to
its database here, so that the guard alone protects it.
"""

import os
import subprocess
import sys
import urllib.parse
from dataclasses import dataclass
from pathlib import Path

import run_examples

REFUSAL = "This page does not understand the request."
SECRET = "SELECT GivenName || 'SECRET' || ID AS A FROM Employees"
DELETE = "DELETE FROM Categories RETURNING ID"
OWN_SQL = "$view->sql = 'SELECT ID, Company FROM Customers';"
QUOTED = urllib.parse.quote


@dataclass
class Request:
    query: str = ""
    form: str = ""
    form_type: str = "application/x-www-form-urlencoded"
    settings: str = ""  # PHP that sets properties of the view.


def multipart(**fields):
    parts = "".join(
        f'--limit\r\nContent-Disposition: form-data; name="{name}"\r\n\r\n{value}\r\n' for name, value in fields.items()
    )
    return Request(form=parts + "--limit--\r\n", form_type="multipart/form-data; boundary=limit")


MANY_FIELDS = "&".join(f"f{number}=1" for number in range(1500))
KEYED = "$view->EditPrimaryKeys = 'ID';"
UNION = QUOTED("0) UNION SELECT ID, GivenName || 'SECRET' FROM Employees --")
BY_LETTER = QUOTED("CASE WHEN (SELECT GivenName FROM Employees ORDER BY ID) > 'A' THEN -ID ELSE ID END")

ATTACKS = {
    "a download": Request(f"Morvu1SQL={QUOTED(SECRET)}&Morvu1ToExcel.x=1"),
    "a download without its icon": Request(
        f"Morvu1SQL={QUOTED(SECRET)}&Morvu1ToExcel.x=1", settings="$view->DisplayExcelIcon = false;"
    ),
    "a statement that changes data": Request(f"Morvu1SQL={QUOTED(DELETE)}&Morvu1ToExcel.x=1"),
    "a statement for the page": Request(f"Morvu1SQL={QUOTED(SECRET)}"),
    "a posted statement": Request(form=f"Morvu1SQL={QUOTED(SECRET)}&Morvu1ToExcel.x=1"),
    "another letter case": Request(f"mORVU1sql={QUOTED(SECRET)}&MORVU1TOEXCEL.X=1"),
    "an encoded name": Request(f"%4Dorvu1%53QL={QUOTED(SECRET)}&Morvu1ToExcel%2Ex=1"),
    "a statement in the address of a form": Request(f"Morvu1SQL={QUOTED(SECRET)}", form="Morvu1NEXT.x=1"),
    "more fields than PHP reads": Request(f"{MANY_FIELDS}&Morvu1SQL={QUOTED(SECRET)}&Morvu1ToExcel.x=1"),
    "more posted fields than PHP reads": Request(form=f"{MANY_FIELDS}&Morvu1SQL={QUOTED(SECRET)}"),
    "a form in parts": multipart(**{"Morvu1SQL": SECRET, "Morvu1ToExcel.x": "1"}),
    "an order": Request(f"Morvu1OrderByFields={BY_LETTER}"),
    "an order of a download": Request(f"Morvu1OrderByFields={BY_LETTER}&Morvu1ToExcel.x=1"),
    "a key": Request(f"Morvu1FormDisplay=formOneRec&Morvu1PK={UNION}", settings=KEYED),
    "a posted key": Request(form=f"Morvu1FormDisplay=formOneRec&morvu1pk={UNION}", settings=KEYED),
    "a change": Request(
        form="Morvu1FormUpdate=Save&Morvu1_Form_ID=1&Morvu1_Form_Company=SECRET",
        settings=KEYED + "$view->EditOptions = 'ALL';",
    ),
}

# What an honest visitor does, and a text of the answer.
HONEST = {
    "the first page": (Request(), "Carter"),
    "the next page": (Request(form="Morvu1CurrRecord=1&Morvu1NEXT.x=3&Morvu1OrderByFields="), ">21<"),
    "a sorted page": (Request("Morvu1OrderByFields=2&Morvu1OrderByDesc=True"), "orderdesc.gif"),
    "the order of the page": (Request("Morvu1OrderByFields=Company", settings="$view->OrderByFields = 'Company';"), "Aarhus"),
    "a record": (Request("Morvu1FormDisplay=formOneRec&Morvu1PK=2&Morvu1OrderByFields=", settings=KEYED), "Turf Fire"),
    "the download": (Request("Morvu1ToExcel.x=1"), "</table>"),
    "a search": (Request("Search=SELECT+SQL+Morvu"), "SELECT SQL Morvu"),
}  # fmt: skip


def page_of(document):
    block = next(block for block in run_examples.blocks_of(document) if "function write_public(" in block.text)
    assert OWN_SQL in block.text
    return block.text.replace("Mode=Read;", "")


def answer(page, request, folder, php_cgi, extension):
    """What the page sends, and whether another table was changed."""
    script = folder / "page.php"
    script.write_text(page.replace(OWN_SQL, OWN_SQL + request.settings), encoding="utf-8")
    environment = {
        "REQUEST_METHOD": "POST" if request.form else "GET",
        "QUERY_STRING": request.query,
        "CONTENT_TYPE": request.form_type if request.form else "",
        "CONTENT_LENGTH": str(len(request.form.encode())) if request.form else "",
        "REDIRECT_STATUS": "200",
        "SCRIPT_FILENAME": str(script),
        "SCRIPT_NAME": "/page.php",
    }
    database = folder / "shop.db"
    before = database.read_bytes()
    options = ["-n", "-q", "-d", f"extension={extension}", "-d", "error_reporting=-1", "-d", "display_errors=0"]
    process = subprocess.run([php_cgi, *options], input=request.form, env={**os.environ, "LC_ALL": "C.UTF-8", **environment},
                             cwd=folder, capture_output=True, encoding="utf-8", timeout=60, check=False)  # fmt: skip
    return run_examples.without_headers(process.stdout), database.read_bytes() != before


def is_harmed(body, is_changed):
    first_customer = body.find(">1</td>")
    is_reversed = 0 <= body.find(">400</td>") < (first_customer if first_customer >= 0 else len(body))
    return "SECRET" in body or is_changed or is_reversed


def problems_of(document, shop, php_cgi, extension):
    guarded = page_of(document)
    unguarded = guarded.replace("\nwrite_public($view);", "\n$view->WriteHtmlTable();")
    assert unguarded != guarded

    def ask(page, request):
        return run_examples.in_folder_with_shop(
            shop, lambda folder: answer(page, request, folder, php_cgi, extension)
        )

    for name, request in ATTACKS.items():
        if not is_harmed(*ask(unguarded, request)):
            yield f"{name}: does no harm to a page without a guard"
        body, is_changed = ask(guarded, request)
        is_refused = body.strip() == REFUSAL or name == "a change"
        if is_harmed(body, is_changed) or not is_refused:
            yield f"{name}: was not refused\n{body[:300]}"
    for name, (request, text) in HONEST.items():
        body, is_changed = ask(guarded, request)
        if text not in body or is_changed:
            yield f"{name}: was not served\n{body[:300]}"


def main(document, *arguments):
    problems = list(problems_of(Path(document), *arguments))
    print("\n".join(problems) or f"{len(ATTACKS)} attacks failed, {len(HONEST)} honest requests were served")
    return not problems


if __name__ == "__main__":
    sys.exit(0 if main(*sys.argv[1:]) else 1)
