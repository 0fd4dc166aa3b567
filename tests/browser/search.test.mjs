// The page's own form above a grid: its fields stay, and what is typed into them stays text.

import assert from "node:assert/strict";
import { editTest, run, siteTest, visitors } from "./site.mjs";
import { answered, column, counter, press, sortBy, valuesOf } from "./view.mjs";

const markup = `"><script>document.title = "taken"</script><img src=x onerror='document.title = "taken"'>`;

const searchField = (page) => page.getByLabel("Company, contact or city");
const order = (page) => page.getByLabel("Sort by");

const nothingFound = (page) => page.getByText("No customer matches.", { exact: true });

const search = (page, text) =>
  answered(page, async () => {
    await searchField(page).fill(text);
    await searchField(page).press("Enter");
  });

const sortFound = (page, name) =>
  answered(page, async () => {
    await order(page).selectOption(name);
    await page.getByRole("button", { name: "Search" }).click();
  });

/** The IDs of the customers found, in that order. */
const found = (shop, text, orderBy) => {
  const like = `LIKE '%${text.replaceAll("'", "''")}%'`;
  return valuesOf(
    shop,
    `SELECT ID FROM Customers WHERE Company ${like} OR Contact ${like} OR City ${like} ORDER BY ${orderBy}`,
  );
};

const citiesFound = `SELECT City FROM Customers
  WHERE Company LIKE '%ö%' OR Contact LIKE '%ö%' OR City LIKE '%ö%' ORDER BY City`;

siteTest("The text stays in the field while pages are turned and the order changes", visitors.light, async ({
  page,
  shop,
}) => {
  const byCompany = await found(shop, "ö", "Company, ID");
  const byDate = await found(shop, "ö", "Since DESC, ID");
  assert.equal(byCompany.length, 49);
  await page.goto("/search.php");
  assert.equal(await counter(page), "Records (1..10) of 400 Page 1 of 40");

  await search(page, "ö");
  assert.deepEqual(await column(page, 1), byCompany.slice(0, 10));

  await press(page, "Next Page");
  assert.deepEqual(await column(page, 1), byCompany.slice(10, 20));
  assert.equal(await searchField(page).inputValue(), "ö");

  await sortFound(page, "Newest");
  assert.deepEqual(await column(page, 1), byDate.slice(0, 10));
  assert.equal(await searchField(page).inputValue(), "ö");

  await press(page, "Last Page");
  assert.deepEqual(await column(page, 1), byDate.slice(40));
  assert.equal(await searchField(page).inputValue(), "ö");
  assert.equal(await order(page).inputValue(), "Newest");
});

siteTest("A new search begins with its first page", visitors.light, async ({ page, shop }) => {
  await page.goto("/search.php");
  await press(page, "Last Page");

  await search(page, "Köln");

  assert.deepEqual(await column(page, 1), (await found(shop, "Köln", "Company, ID")).slice(0, 10));
  assert.equal((await column(page, 0))[0], "1");
});

siteTest("A heading sorts what was found", visitors.light, async ({ page, shop }) => {
  await page.goto("/search.php");
  await search(page, "ö");

  await sortBy(page, "City");
  await press(page, "Next Page");

  const cities = await column(page, 4);
  assert.equal(await counter(page), "Records (11..20) of 49 Page 2 of 5");
  assert.deepEqual(cities, (await valuesOf(shop, citiesFound)).slice(10, 20));
  assert.equal(await searchField(page).inputValue(), "ö");
});

editTest("Quotes and umlauts are found, and stay in the field from page to page", visitors.light, async ({
  page,
  shop,
}) => {
  const company = `"Über" & O'Brien's Söhne – 100 %`;
  const insert = "INSERT INTO Customers (Company, City, Country, Newsletter, Since) SELECT";
  const text = `'${company.replaceAll("'", "''")}'`;
  await run("sqlite3", [shop, `${insert} ${text}, City, Country, 0, Since FROM Customers LIMIT 25`]);
  await page.goto("/search.php");

  await search(page, company);
  await press(page, "Next Page");
  await press(page, "Next Page");

  assert.deepEqual(await column(page, 2), Array(5).fill(company));
  assert.equal(await searchField(page).inputValue(), company);
});

siteTest("SQL that is typed into the field is only text", visitors.light, async ({ page, shop }) => {
  await page.goto("/search.php");

  for (const text of ["' OR '1'='1", "x'; DROP TABLE Customers; --", "?", "%' UNION SELECT 1,2,3,4,5,6 --"]) {
    await search(page, text);
    assert.equal(await searchField(page).inputValue(), text);
    assert.equal(await nothingFound(page).isVisible(), true, text);
  }
  assert.deepEqual(await valuesOf(shop, "SELECT COUNT(*) FROM Customers"), ["400"]);
});

siteTest("Markup that is typed into the field is only text", visitors.light, async ({ page, troubles }) => {
  await page.goto("/search.php");

  await search(page, markup);
  await sortFound(page, "City");

  assert.equal(await searchField(page).inputValue(), markup);
  assert.equal(await nothingFound(page).isVisible(), true);
  assert.equal(await page.title(), "A search form – Dralo");
  assert.deepEqual(troubles, []);
});

siteTest("A filter stays while the visitor sorts and turns pages", visitors.light, async ({ page, shop }) => {
  await page.goto("/filter.php");

  await page.getByLabel("Category").selectOption({ label: "Tea" });
  await page.getByLabel("In stock only").check();
  await answered(page, () => page.getByRole("button", { name: "Show" }).click());
  await sortBy(page, "Product");
  await press(page, "Next Page");
  await sortBy(page, "Product");

  const tea = "SELECT Products.Name FROM Products JOIN Categories ON Categories.ID = Category";
  const names = await valuesOf(shop, `${tea} WHERE Categories.Name = 'Tea' AND InStock > 0 ORDER BY Products.Name`);
  assert.deepEqual(await column(page, 2), names.slice(10, 20));
  assert.equal(await page.getByLabel("Category").locator("option:checked").innerText(), "Tea");
  assert.equal(await page.getByLabel("In stock only").isChecked(), true);
});

siteTest("Fields that nobody knows travel along as text", visitors.light, async ({ page, troubles }) => {
  const name = `Remark"><script>document.title = "taken"</script>`;
  await page.goto(`/filter.php?${new URLSearchParams({ Category: markup, [name]: markup, Ü: "ä'\"" })}`);

  await press(page, "Next Page");
  await sortBy(page, "Price");
  await press(page, "Next Page");
  await sortBy(page, "Product");

  const address = new URL(page.url()).searchParams;
  assert.equal(address.get("Category"), markup);
  assert.equal(address.get(name), markup);
  assert.equal(address.get("Ü"), "ä'\"");
  assert.equal((await column(page, 0))[0], "21");
  assert.equal(await page.title(), "A filter that stays – Dralo");
  assert.deepEqual(troubles, []);
});

siteTest("The Back button goes back through pages and searches", visitors.light, async ({ page }) => {
  await page.goto("/search.php");
  await search(page, "Tee");
  const teeRooms = await column(page, 1);
  await press(page, "Next Page");
  await search(page, "Wien");

  await page.goBack();
  assert.equal((await column(page, 0))[0], "11");
  await page.goBack();
  assert.deepEqual(await column(page, 1), teeRooms);
  assert.equal(await searchField(page).inputValue(), "Tee");
});
