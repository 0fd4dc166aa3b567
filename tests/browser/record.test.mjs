// From the grid to one record, on to its neighbours, and back.

import assert from "node:assert/strict";
import { kindOfView, openRecord, shownRecord, toList } from "./form.mjs";
import { siteTest, visitors, withAndWithoutScripts } from "./site.mjs";
import { answered, column, counter, press, sortBy, valuesOf, workingButtons } from "./view.mjs";

for (const [kind, visitor] of Object.entries(withAndWithoutScripts)) {
  siteTest(`A number leads to its record, Next to the one after it, List back to the grid (${kind})`, visitor, async ({
    page,
    shop,
    troubles,
  }) => {
    const companies = await valuesOf(shop, "SELECT Company FROM Customers ORDER BY ID");
    await page.goto("/customers.php");
    await press(page, "Next Page");

    await openRecord(page, 4);
    assert.equal((await shownRecord(page)).Company, companies[13]);
    assert.equal(await counter(page), "Record 14 of 400");

    await press(page, "Next Record");
    assert.equal((await shownRecord(page)).Company, companies[14]);
    await press(page, "Next Record");
    await press(page, "Previous Record");
    assert.equal((await shownRecord(page)).Company, companies[14]);
    assert.equal(await counter(page), "Record 15 of 400");

    await toList(page);
    assert.deepEqual(await column(page, 2), companies.slice(14, 24));
    assert.deepEqual(troubles, []);
  });

  siteTest(`Without keys a record is found by its place in the order (${kind})`, visitor, async ({ page, shop }) => {
    const byCity = "SELECT ID FROM Customers ORDER BY City DESC LIMIT 30";
    const ids = await valuesOf(shop, byCity);
    await page.goto("/grid.php");
    await sortBy(page, "City");
    await sortBy(page, "City");
    await press(page, "Next Page");
    const shown = await column(page, 1);

    await openRecord(page, 3);
    assert.equal((await shownRecord(page)).ID, shown[2]);
    assert.equal((await shownRecord(page)).ID, ids[22]);

    await press(page, "Next Record");
    assert.equal((await shownRecord(page)).ID, shown[3]);

    await toList(page);
    assert.equal((await column(page, 1))[0], shown[3]);
    assert.equal((await column(page, 0)).length, 20);
  });
}

siteTest("First and last lead to the ends of all records", visitors.light, async ({ page, shop }) => {
  const ids = await valuesOf(shop, "SELECT ID FROM Customers ORDER BY ID");
  await page.goto("/customers.php");
  await openRecord(page, 3);
  assert.deepEqual(await workingButtons(page), ["First", "Previous", "Next", "Last"]);

  await press(page, "Last Record");
  assert.equal((await shownRecord(page)).ID, ids.at(-1));
  assert.deepEqual(await workingButtons(page), ["First", "Previous"]);

  await press(page, "First Record");
  assert.equal((await shownRecord(page)).ID, ids[0]);
  assert.deepEqual(await workingButtons(page), ["Next", "Last"]);
});

siteTest("A record shows one row for each field, all of those that the page asks for", visitors.light, async ({ page }) => {
  await page.goto("/customers.php");
  await openRecord(page, 2);

  const record = await shownRecord(page);
  assert.deepEqual(Object.keys(record), [
    "ID",
    "Company",
    "Contact",
    "City",
    "Country",
    "E-mail",
    "Credit limit",
    "Newsletter",
    "Since",
    "Last visit",
    "Notes",
  ]);
  assert.equal(record.Company, "The Turf Fire Bookshop");
  assert.equal(record.Country, "Ireland");
  assert.equal(record["Credit limit"], "18750");
  assert.equal(record.Newsletter, "False");
  assert.equal(record.Since, "6/10/2015");
  assert.equal(record["Last visit"], "5/9/2019 9:27:34 PM");
});

siteTest("What was searched for stays while one record is shown", visitors.light, async ({ page }) => {
  await page.goto("/search.php?Search=%C3%B6");
  const ids = await column(page, 1);

  await openRecord(page, 3);
  assert.equal((await shownRecord(page)).ID, ids[2]);
  assert.equal(await page.getByLabel("Company, contact or city").inputValue(), "ö");

  await press(page, "Next Record");
  assert.equal((await shownRecord(page)).ID, ids[3]);

  await toList(page);
  assert.deepEqual((await column(page, 1)).slice(0, 2), ids.slice(3, 5));
});

siteTest("One record after the other, nobody gets beyond the limit on records", visitors.light, async ({ page, shop }) => {
  const orders = await valuesOf(shop, "SELECT ID FROM OrderTotals ORDER BY Total DESC LIMIT 50");
  await page.goto("/limit.php");
  await openRecord(page, 1);

  await press(page, "Last Record");

  assert.equal((await shownRecord(page)).ID, orders[49]);
  assert.deepEqual(await workingButtons(page), ["First", "Previous"]);
});

siteTest("Links of templates lead to their record", visitors.light, async ({ page }) => {
  for (const number of [2, 7]) {
    await page.goto("/templates.php");
    const [product] = (await column(page, 2))[4].split("\n");

    await answered(page, () => page.locator(`[id="drl1cell_5_${number}"] a`).click());

    assert.equal(await kindOfView(page), "view");
    assert.ok((await shownRecord(page)).Product.startsWith(product), product);
  }
});

siteTest("The Back button leads from a record to where the grid was", visitors.light, async ({ page }) => {
  await page.goto("/customers.php");
  await press(page, "Next Page");
  await openRecord(page, 2);
  await press(page, "Next Record");

  await page.goBack();
  assert.equal(await counter(page), "Record 12 of 400");
  await page.goBack();
  assert.equal(await counter(page), "Records (11..20) of 400 Page 2 of 40");
});

siteTest("A record of one grid leaves the other grid where it is", visitors.light, async ({ page }) => {
  await page.goto("/two-grids.php");
  await press(page, "Next Page", 2);

  await openRecord(page, 3, 1);
  assert.equal(await counter(page, 1), "Record 3 of 400");
  assert.equal((await column(page, 1, 2))[0], "7");

  await openRecord(page, 3, 2);
  assert.equal(await counter(page, 1), "Record 3 of 400");
  assert.equal((await shownRecord(page, 2)).ID, "9");

  await press(page, "Next Record", 1);
  await toList(page, "List", 2);
  assert.equal(await counter(page, 1), "Record 4 of 400");
  assert.equal((await column(page, 1, 2))[0], "9");
});
