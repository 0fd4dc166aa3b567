// A view on a page, as a visitor meets it: its rows, its headings, its navigation bar.

import { run } from "./site.mjs";

/** All that the view with that tag has written. */
export const viewOf = (page, tag = 1) => page.locator(`table:has(> #FormDraloGrid${tag})`);

/** Does `action` and waits for the page that the site answers with. */
export async function answered(page, action) {
  await Promise.all([page.waitForEvent("load"), action()]);
}

/** A button, such as "Next Page", or a link that looks like one; with two bars the one above. */
export const button = (page, name, tag) =>
  viewOf(page, tag).getByRole("button", { name }).or(viewOf(page, tag).locator("a.DraloInputBtn", { hasText: name })).first();

/** The link in the heading of a column. */
export const heading = (page, name, tag) => viewOf(page, tag).locator("th.DRLOTableTH").getByRole("link", { name });

/** The select for the page size. */
export const pageSize = (page, tag) => viewOf(page, tag).getByRole("combobox");

export const press = (page, name, tag) => answered(page, () => button(page, name, tag).click());
export const sortBy = (page, name, tag) => answered(page, () => heading(page, name, tag).click());
export const choosePageSize = (page, size, tag) =>
  answered(page, () => pageSize(page, tag).selectOption({ label: String(size) }));

/** The texts of the column with that number; 0 is the record's number. */
export const column = (page, number, tag = 1) =>
  page.locator(`td[id^="drl${tag}cell_"][id$="_${number}"]`).allInnerTexts();

/** What the bar says, such as "Records (1..20) of 400 Page 1 of 20"; with two bars the one above. */
export const counter = async (page, tag) => {
  const text = await viewOf(page, tag).locator("td.DRLOTableNavBar:nth-child(2)").first().innerText();
  return text.trim().replace(/\s+/g, " ");
};

/** The buttons of the bar that work, by their first word, such as ["Next", "Last"]. */
export const workingButtons = async (page, tag) => {
  const titles = await viewOf(page, tag)
    .locator("td.DRLOTableNavBar:first-child")
    .first()
    .getByRole("button")
    .evaluateAll((buttons) => buttons.map((one) => one.title));
  return titles.map((title) => title.split(" ")[0]);
};

/** The first column of what the shop's database answers, as texts. */
export async function valuesOf(shop, sql) {
  const { stdout } = await run("sqlite3", ["-json", shop, sql]);
  return JSON.parse(stdout || "[]").map((row) => String(Object.values(row)[0]));
}
