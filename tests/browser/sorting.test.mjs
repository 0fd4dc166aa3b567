// Sorting by a click on a heading.

import assert from "node:assert/strict";
import { siteTest, visitors } from "./site.mjs";
import { choosePageSize, column, counter, heading, press, sortBy, valuesOf } from "./view.mjs";

const byId = (one, other) => Number(one) - Number(other);

siteTest("A click on a heading sorts by it, a second click the other way round", visitors.light, async ({ page }) => {
  await page.goto("/grid.php");

  await sortBy(page, "ID");
  assert.deepEqual((await column(page, 1)).slice(0, 3), ["1", "2", "3"]);
  assert.match(await heading(page, "ID").locator("img").getAttribute("src"), /orderasc\.gif$/);

  await sortBy(page, "ID");
  assert.deepEqual((await column(page, 1)).slice(0, 3), ["400", "399", "398"]);
  assert.match(await heading(page, "ID").locator("img").getAttribute("src"), /orderdesc\.gif$/);

  await sortBy(page, "ID");
  assert.deepEqual((await column(page, 1)).slice(0, 3), ["1", "2", "3"]);
});

siteTest("A click on another heading sorts by that one, ascending again", visitors.light, async ({ page }) => {
  await page.goto("/grid.php");
  await sortBy(page, "ID");
  await sortBy(page, "ID");

  await sortBy(page, "Country");

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

siteTest("The order stays while pages are turned", visitors.light, async ({ page, shop }) => {
  const names = (await valuesOf(shop, "SELECT Name FROM Products ORDER BY Name")).reverse();
  await page.goto("/bars.php");

  await sortBy(page, "Product");
  assert.deepEqual(await column(page, 2), names.slice(0, 10));

  await press(page, "Next Page");
  assert.deepEqual(await column(page, 2), names.slice(10, 20));

  await press(page, "Last Page");
  assert.deepEqual(await column(page, 2), names.slice(110));

  await press(page, "Previous Page");
  assert.deepEqual(await column(page, 2), names.slice(100, 110));
});

siteTest("Another column sorts anew, and its pages follow", visitors.light, async ({ page, shop }) => {
  const dates = await valuesOf(shop, "SELECT strftime('%m/%d/%Y', SoldSince) FROM Products ORDER BY SoldSince");
  const shown = dates.map((date) => date.replace(/\b0/g, ""));
  await page.goto("/bars.php");
  await sortBy(page, "Product");

  await sortBy(page, "Sold since");
  await press(page, "Next Page");
  assert.deepEqual(await column(page, 6), shown.slice(10, 20));

  await sortBy(page, "Sold since");
  assert.deepEqual(await column(page, 6), shown.reverse().slice(10, 20));
});

siteTest("Sorting keeps the page and its size", visitors.light, async ({ page, shop }) => {
  const prices = await valuesOf(shop, "SELECT Price FROM Products ORDER BY Price");
  await page.goto("/bars.php");
  await choosePageSize(page, 20);
  await press(page, "Next Page");

  await sortBy(page, "Price");

  assert.equal(await counter(page), "Records (21..40) of 120 Page 2 of 6");
  assert.deepEqual((await column(page, 4)).map(Number), prices.slice(20, 40).map(Number));
});

siteTest("The browser's Back button goes back to the order before", visitors.light, async ({ page, shop }) => {
  const names = await valuesOf(shop, "SELECT Name FROM Products ORDER BY Name");
  await page.goto("/bars.php");
  await press(page, "Next Page");
  await sortBy(page, "Product");
  assert.deepEqual(await column(page, 2), [...names].reverse().slice(10, 20));

  await page.goBack();
  assert.deepEqual(await column(page, 2), names.slice(10, 20));

  await page.goForward();
  assert.deepEqual(await column(page, 2), [...names].reverse().slice(10, 20));
});

siteTest("A copied sort link opens the same page for somebody else", visitors.light, async ({ page }) => {
  await page.goto("/bars.php");
  await choosePageSize(page, 5);
  await press(page, "Next Page");
  await press(page, "Next Page");
  await sortBy(page, "Product");
  const seen = [await column(page, 0), await column(page, 2), await counter(page)];

  const other = await page.context().browser().newContext();
  const opened = await other.newPage();
  await opened.goto(page.url());

  assert.deepEqual([await column(opened, 0), await column(opened, 2), await counter(opened)], seen);
  assert.equal(seen[2], "Records (11..15) of 120 Page 3 of 24");
  await other.close();
});

siteTest("A page that was sorted stays the same when it is loaded again", visitors.light, async ({ page }) => {
  await page.goto("/grid.php");
  await sortBy(page, "City");
  await sortBy(page, "City");
  const cities = await column(page, 4);

  await page.reload();

  assert.deepEqual(await column(page, 4), cities);
  assert.deepEqual(cities, [...cities].sort().reverse());
});
