// The button for the spreadsheet, and the file that it downloads.

import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { siteTest, visitors } from "./site.mjs";
import { answered, button, column, counter, sortBy, valuesOf } from "./view.mjs";

/** Presses the button; returns the file's name and its text. */
async function download(page) {
  const started = page.waitForEvent("download");
  await button(page, "Excel export").click();
  const file = await started;
  return { name: file.suggestedFilename(), text: await readFile(await file.path(), "utf8") };
}

const signs = { "&amp;": "&", "&lt;": "<", "&gt;": ">", "&quot;": '"', "&#39;": "'" };

/** The cells of the rows of the file, tags left out, as a program shows them. */
const rowsOf = (text) =>
  [...text.matchAll(/<tr>\r\n(.*?)<\/tr>\r\n/gs)].map(([, row]) =>
    [...row.matchAll(/<t[hd] .*? >(.*?)<\/t[hd]>\r\n/gs)].map(([, cell]) =>
      cell.replace(/^<meta [^>]*>/, "").replace(/&[a-z#0-9]+;/g, (sign) => signs[sign]),
    ),
  );

/** Numbers, companies and totals of all orders as the page writes them. */
async function orders(shop, order) {
  const all = (expression) => valuesOf(shop, `SELECT ${expression} FROM OrderTotals ORDER BY ${order}`);
  const [ids, companies, totals] = await Promise.all([all("ID"), all("Company"), all("Total")]);
  return ids.map((id, at) => [id, companies[at], totals[at]]);
}

siteTest("The button downloads all records, whatever the page shows", visitors.light, async ({ page, shop }) => {
  await page.goto("/export.php");
  await answered(page, () => button(page, "Next Page").click());
  const shown = await counter(page);

  const { name, text } = await download(page);

  assert.equal(name, "DraloExcelExport.xls");
  assert.ok(text.startsWith('<table>\r\n<tr>\r\n<th style="border:thin silver solid" ><meta charset="utf-8" >ID</th>\r\n'));
  assert.ok(text.endsWith("</tr>\r\n</table>"));
  const [headings, ...rows] = rowsOf(text);
  assert.deepEqual(headings, ["ID", "OrderedAt", "Company", "Total"]);
  assert.deepEqual(
    rows.map(([id, , company, total]) => [id, company, total]),
    await orders(shop, "ID"),
  );
  assert.equal(await counter(page), shown);
});

siteTest("The file is sorted as the page is", visitors.light, async ({ page, shop }) => {
  await page.goto("/export.php");
  await sortBy(page, "ID");
  await sortBy(page, "ID");

  const [, ...rows] = rowsOf((await download(page)).text);

  const expected = await orders(shop, "ID DESC");
  assert.deepEqual(
    rows.map((row) => row[0]),
    expected.map((row) => row[0]),
  );
});

siteTest("What the visitor has chosen on the page applies to the file", visitors.light, async ({ page }) => {
  await page.goto("/export.php");
  await page.getByLabel("Numbers as on the page").check();
  await page.getByLabel("No headings in the file").check();
  await answered(page, () => page.getByRole("button", { name: "Apply" }).click());
  const totals = await column(page, 5);

  const rows = rowsOf((await download(page)).text);

  assert.deepEqual(
    rows.slice(0, 10).map((row) => row[3]),
    totals,
  );
  assert.match(totals[0], /^[\d,]+\.\d\d$/);
});

siteTest("The page is there as before after a download", visitors.phone, async ({ page }) => {
  await page.goto("/grid.php");
  const before = await page.content();

  const { text } = await download(page);

  assert.equal(rowsOf(text).length, 401);
  assert.equal(await page.content(), before);
});
