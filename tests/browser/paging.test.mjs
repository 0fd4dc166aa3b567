// Turning pages and choosing their size.

import assert from "node:assert/strict";
import { siteTest, visitors } from "./site.mjs";
import {
  answered,
  button,
  choosePageSize,
  column,
  counter,
  pageSize,
  press,
  valuesOf,
  viewOf,
  workingButtons,
} from "./view.mjs";

const byName = "SELECT Name FROM Products ORDER BY Name";

siteTest("Next and previous turn the pages", visitors.light, async ({ page, shop, troubles }) => {
  const ids = await valuesOf(shop, "SELECT ID FROM Customers ORDER BY ID");
  await page.goto("/grid.php");
  assert.deepEqual(await column(page, 1), ids.slice(0, 20));

  await press(page, "Next Page");
  assert.deepEqual(await column(page, 1), ids.slice(20, 40));
  assert.equal((await column(page, 0))[0], "21");
  assert.equal(await counter(page), "Records (21..40) of 400 Page 2 of 20");

  await press(page, "Next Page");
  await press(page, "Previous Page");
  assert.deepEqual(await column(page, 1), ids.slice(20, 40));
  assert.deepEqual(troubles, []);
});

siteTest("Last and first go to the ends, where the buttons that lead nowhere do not work", visitors.light, async ({
  page,
  shop,
}) => {
  const names = await valuesOf(shop, byName);
  await page.goto("/bars.php");
  await choosePageSize(page, 50);
  assert.deepEqual(await workingButtons(page), ["Next", "Last"]);

  await press(page, "Last Page");
  assert.deepEqual(await column(page, 2), names.slice(100));
  assert.equal(await counter(page), "Records (101..120) of 120 Page 3 of 3");
  assert.deepEqual(await workingButtons(page), ["First", "Previous"]);

  await press(page, "Previous Page");
  assert.deepEqual(await workingButtons(page), ["First", "Previous", "Next", "Last"]);

  await press(page, "First Page");
  assert.deepEqual(await column(page, 2), names.slice(0, 50));
  assert.deepEqual(await workingButtons(page), ["Next", "Last"]);
});

siteTest("The bar below the grid does what the one above does", visitors.light, async ({ page }) => {
  await page.goto("/bars.php");
  const bars = viewOf(page).locator("th.DRLOTableNavBar");
  assert.equal(await bars.count(), 2);

  await answered(page, () => bars.last().getByRole("button", { name: "Next Page" }).click());

  assert.deepEqual(await column(page, 0), ["11", "12", "13", "14", "15", "16", "17", "18", "19", "20"]);
  assert.equal(await bars.first().innerText(), await bars.last().innerText());
});

siteTest("The bar works with the keyboard alone", visitors.light, async ({ page }) => {
  await page.goto("/bars.php");

  await pageSize(page).focus();
  await page.keyboard.press("Tab");
  await answered(page, () => page.keyboard.press("Enter"));
  assert.equal((await column(page, 0))[0], "11");

  await button(page, "Last Page").focus();
  await answered(page, () => page.keyboard.press("Space"));
  assert.equal((await column(page, 0))[0], "111");
});

siteTest("The select sets how many rows a page has, and keeps the number", visitors.light, async ({ page, shop }) => {
  const names = await valuesOf(shop, byName);
  await page.goto("/bars.php");
  assert.equal(await pageSize(page).inputValue(), "10");

  await choosePageSize(page, 20);
  assert.deepEqual(await column(page, 2), names.slice(0, 20));

  await press(page, "Next Page");
  assert.deepEqual(await column(page, 2), names.slice(20, 40));
  assert.equal(await pageSize(page).inputValue(), "20");
  assert.equal(await counter(page), "Records (21..40) of 120 Page 2 of 6");
});

siteTest("Another page size begins with the record that was the first", visitors.light, async ({ page, shop }) => {
  const names = await valuesOf(shop, byName);
  await page.goto("/bars.php");
  await press(page, "Next Page");
  await press(page, "Next Page");

  await choosePageSize(page, 5);

  assert.deepEqual(await column(page, 2), names.slice(20, 25));
  assert.equal(await counter(page), "Records (21..25) of 120 Page 5 of 24");
});

siteTest("The arrow keys choose a page size", visitors.light, async ({ page }) => {
  await page.goto("/bars.php");
  await pageSize(page).focus();

  await answered(page, () => page.keyboard.press("ArrowDown"));
  assert.equal((await column(page, 0)).length, 20);

  await pageSize(page).focus();
  await answered(page, () => page.keyboard.press("ArrowUp"));
  assert.equal((await column(page, 0)).length, 10);
});

siteTest("The browser's Back button goes back page by page", visitors.light, async ({ page }) => {
  await page.goto("/grid.php");
  await press(page, "Next Page");
  await press(page, "Last Page");
  assert.equal((await column(page, 0))[0], "381");

  await page.goBack();
  assert.equal(await counter(page), "Records (21..40) of 400 Page 2 of 20");
  await press(page, "Next Page");
  assert.equal((await column(page, 0))[0], "41");

  await page.goBack();
  await page.goBack();
  assert.equal(await counter(page), "Records (1..20) of 400 Page 1 of 20");
});

siteTest("A page that is loaded again stays the same", visitors.light, async ({ page }) => {
  await page.goto("/bars.php");
  await choosePageSize(page, 20);
  await press(page, "Next Page");
  const [before, names] = [await counter(page), await column(page, 2)];

  await page.reload();

  assert.equal(await counter(page), before);
  assert.deepEqual(await column(page, 2), names);
});

siteTest("Without counting the bar names no total and cannot go to the last page", visitors.light, async ({ page }) => {
  await page.goto("/no-count.php");
  assert.equal(await counter(page), "Records (1..20) Page 1");
  assert.deepEqual(await workingButtons(page), ["Next"]);

  await press(page, "Next Page");
  assert.equal(await counter(page), "Records (21..40) Page 2");
  assert.deepEqual(await workingButtons(page), ["First", "Previous", "Next"]);
});

siteTest("Without counting the last page is found by getting there", visitors.light, async ({ page, shop }) => {
  const [total] = await valuesOf(shop, "SELECT COUNT(*) FROM OrderLines");
  const first = total - 29;
  await page.goto(`/no-count.php?Morvu1CurrRecord=${first}`);
  assert.deepEqual(await workingButtons(page), ["First", "Previous", "Next"]);

  await press(page, "Next Page");

  assert.deepEqual(await column(page, 0), Array.from({ length: 10 }, (_, row) => String(first + 20 + row)));
  assert.deepEqual(await workingButtons(page), ["First", "Previous"]);
});

siteTest("Nobody gets beyond the limit on records", visitors.light, async ({ page, shop }) => {
  const orders = await valuesOf(shop, "SELECT ID FROM OrderTotals ORDER BY Total DESC LIMIT 50");
  await page.goto("/limit.php");
  assert.equal(await counter(page), "Records (1..15) of 50 Page 1 of 4");

  await press(page, "Last Page");
  assert.deepEqual(await column(page, 1), orders.slice(45));
  assert.deepEqual(await workingButtons(page), ["First", "Previous"]);

  await page.goto("/limit.php?Morvu1CurrRecord=40&Morvu1maxrecords=200");
  assert.deepEqual(await column(page, 1), orders.slice(39));
  // The page size of the address is not one that the page offers.
  assert.deepEqual(await workingButtons(page), ["First", "Previous", "Last"]);

  await page.goto("/limit.php?Morvu1CurrRecord=1000");
  assert.deepEqual(await column(page, 0), ["50"]);
});
