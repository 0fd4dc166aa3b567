// Several grids on one page.

import assert from "node:assert/strict";
import { siteTest, visitors } from "./site.mjs";
import { choosePageSize, column, counter, press, sortBy } from "./view.mjs";

/** The first ID in each of the two grids. */
const firstIds = async (page) => [(await column(page, 1, 1))[0], (await column(page, 1, 2))[0]];

siteTest("Each grid turns its own pages and keeps the other one where it is", visitors.light, async ({ page }) => {
  await page.goto("/two-grids.php");
  assert.deepEqual(await firstIds(page), ["1", "1"]);

  await press(page, "Next Page", 1);
  assert.deepEqual(await firstIds(page), ["7", "1"]);

  await press(page, "Next Page", 2);
  assert.deepEqual(await firstIds(page), ["7", "7"]);

  await press(page, "First Page", 1);
  assert.deepEqual(await firstIds(page), ["1", "7"]);
});

siteTest("Sorting one grid leaves page and order of the other", visitors.light, async ({ page }) => {
  await page.goto("/two-grids.php");

  await sortBy(page, "ID", 1);
  await sortBy(page, "ID", 1);
  assert.deepEqual(await firstIds(page), ["400", "1"]);

  await press(page, "Next Page", 2);
  assert.deepEqual(await firstIds(page), ["400", "7"]);

  await press(page, "Next Page", 1);
  assert.deepEqual(await firstIds(page), ["394", "7"]);

  await sortBy(page, "ID", 2);
  await sortBy(page, "ID", 2);
  assert.deepEqual(await firstIds(page), ["394", "2994"]);

  await press(page, "Last Page", 1);
  assert.deepEqual(await firstIds(page), ["4", "2994"]);
  assert.equal(await counter(page, 2), "Records (7..12) of 3000 Page 2 of 500");
});

siteTest("The Back button undoes the last click, in whichever grid it was", visitors.light, async ({ page }) => {
  await page.goto("/two-grids.php");
  await press(page, "Next Page", 1);
  await sortBy(page, "Company", 2);
  const companies = await column(page, 3, 2);
  await press(page, "Next Page", 1);

  await page.goBack();
  assert.equal((await column(page, 1, 1))[0], "7");
  assert.deepEqual(await column(page, 3, 2), companies);

  await page.goBack();
  assert.deepEqual(await firstIds(page), ["7", "1"]);
});

siteTest("Four grids have four page sizes", visitors.light, async ({ page }) => {
  await page.goto("/languages.php");

  await choosePageSize(page, 8, 2);
  await choosePageSize(page, 16, 4);
  await press(page, "Neste side", 3);

  const sizes = [1, 2, 3, 4].map(async (tag) => (await column(page, 0, tag)).length);
  assert.deepEqual(await Promise.all(sizes), [4, 8, 4, 16]);
  assert.equal((await column(page, 0, 3))[0], "5");
});
