// Sorting by a click on a heading.

import assert from "node:assert/strict";
import { siteTest, visitors } from "./site.mjs";

const heading = (page, name) => page.locator("th.DRLOTableTH").getByRole("link", { name });

/** The texts of the column with that number on the page shown. */
const column = (page, number) => page.locator(`td[id^=drl1cell_][id$="_${number}"]`).allInnerTexts();

const byId = (one, other) => Number(one) - Number(other);

siteTest("A click on a heading sorts by it, a second click the other way round", visitors.light, async ({ page }) => {
  await page.goto("/grid.php");

  await heading(page, "ID").click();
  assert.deepEqual((await column(page, 1)).slice(0, 3), ["1", "2", "3"]);
  assert.match(await heading(page, "ID").locator("img").getAttribute("src"), /orderasc\.gif$/);

  await heading(page, "ID").click();
  assert.deepEqual((await column(page, 1)).slice(0, 3), ["400", "399", "398"]);
  assert.match(await heading(page, "ID").locator("img").getAttribute("src"), /orderdesc\.gif$/);

  await heading(page, "ID").click();
  assert.deepEqual((await column(page, 1)).slice(0, 3), ["1", "2", "3"]);
});

siteTest("A click on another heading sorts by that one, ascending again", visitors.light, async ({ page }) => {
  await page.goto("/grid.php");
  await heading(page, "ID").click();
  await heading(page, "ID").click();

  await heading(page, "Country").click();

  const countries = await column(page, 5);
  assert.equal(countries.length, 20);
  assert.deepEqual(countries, [...countries].sort());
  assert.equal(countries[0], "AT");
  assert.equal(await page.locator("th.DRLOTableTH img").count(), 1);
  assert.notDeepEqual(await column(page, 1), (await column(page, 1)).sort(byId).reverse());
});

siteTest("A column without sorting has a heading and no link", visitors.light, async ({ page }) => {
  await page.goto("/columns.php");

  assert.equal(await page.locator("th.DRLOTableTH", { hasText: "About the product" }).count(), 1);
  assert.equal(await heading(page, "About the product").count(), 0);
  assert.equal(await heading(page, "Price in €").count(), 1);
});
