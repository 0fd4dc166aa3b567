// One record on a page, as a view or as a form, and what a database keeps of it.

import { run } from "./site.mjs";
import { answered, viewOf } from "./view.mjs";

/** The control of a field in the edit form. */
export const field = (page, name, tag = 1) => page.locator(`[id="Morvu${tag}_Form_${name}"]`);

/** Follows the number of a row, counted from 1 on the page, to its record. */
export const openRecord = (page, row, tag = 1) =>
  answered(page, () => page.locator(`[id="drl${tag}cell_${row}_0"] a`).click());

/** Back from a record to the grid. */
export const toList = (page, name = "List", tag = 1) =>
  answered(page, () => viewOf(page, tag).getByRole("link", { name, exact: true }).click());

/** What stands behind the buttons: the message about the last save or delete, else "". */
export const message = (page, tag = 1) =>
  viewOf(page, tag)
    .locator(".DraloEditBtnBar, td:has(> input[type=submit])")
    .first()
    .evaluate((bar) => {
      const copy = bar.cloneNode(true);
      copy.querySelectorAll("button").forEach((button) => button.remove());
      return copy.innerText.replace(/\s+/g, " ").trim();
    });

/** What stands beside the fields of a form that was refused. */
export const notes = (page, tag = 1) => viewOf(page, tag).locator(".DraloFieldNote").allInnerTexts();

/** The captions of the buttons above the record. */
export const buttons = (page, tag = 1) =>
  viewOf(page, tag)
    .locator(".DraloEditBtnBar :is(input:not([type=hidden]), button)")
    .evaluateAll((all) => all.map((one) => (one.localName === "button" ? one.innerText : one.value)));

/** The record that the one-record view shows, as { label: text }. */
export const shownRecord = async (page, tag = 1) =>
  Object.fromEntries(
    await viewOf(page, tag)
      .locator("table.DRLOTableFormDataView tr")
      .evaluateAll((rows) => rows.map((row) => [...row.cells].map((cell) => cell.innerText.trim()))),
  );

/** Which view is on the page: "grid", "view" or "form". */
export const kindOfView = async (page, tag = 1) => {
  const inner = viewOf(page, tag).locator("table.DRLOTable, table.DRLOTableFormDataView, table.DRLOTableFormDataEdit");
  const kinds = { DRLOTable: "grid", DRLOTableFormDataView: "view", DRLOTableFormDataEdit: "form" };
  return kinds[await inner.first().getAttribute("class")];
};

/**
 * The rows of a table in the order of their insertion, each { column: value }. A value tells its type and every byte, such
 * as "text:4142" or "integer:7".
 */
export async function stored(file, table, where = "1") {
  const columns = JSON.parse((await run("sqlite3", ["-json", file, `SELECT name FROM pragma_table_info('${table}')`])).stdout);
  const exact = (name) =>
    `typeof("${name}") || ':' || iif(typeof("${name}") IN ('text', 'blob'), hex("${name}"), quote("${name}")) AS "${name}"`;
  const sql = `SELECT ${columns.map(({ name }) => exact(name)).join(", ")} FROM "${table}" WHERE ${where} ORDER BY rowid`;
  const { stdout } = await run("sqlite3", ["-readonly", "-json", file, sql], { maxBuffer: 1 << 26 });
  return JSON.parse(stdout || "[]");
}

/** A text as stored() tells it. */
export const text = (value) => `text:${Buffer.from(value, "utf8").toString("hex").toUpperCase()}`;

/** What has become of a table since stored() returned `before`: rows that are gone and rows that were not there. */
export async function changes(before, file, table) {
  const after = await stored(file, table);
  const others = (rows, than) => {
    const known = new Set(than.map((row) => JSON.stringify(row)));
    return rows.filter((row) => !known.has(JSON.stringify(row)));
  };
  return { gone: others(before, after), come: others(after, before) };
}

export const unchanged = { gone: [], come: [] };
