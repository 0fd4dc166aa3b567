// Adding records, from the grid and from the one-record view.

import assert from "node:assert/strict";
import { buttons, changes, field, kindOfView, message, notes, openRecord, stored, text, toList, unchanged } from "./form.mjs";
import { editTest, visitors, withAndWithoutScripts } from "./site.mjs";
import { column, counter, press } from "./view.mjs";

async function fillIn(page) {
  await field(page, "Company").fill(`"Æsops" Teer & Co`);
  await field(page, "City").fill("Ålesund");
  await field(page, "Country").selectOption({ label: "Norway" });
  await field(page, "Since").fill("6/30/2026");
}

const added = {
  ID: "integer:401",
  Company: text(`"Æsops" Teer & Co`),
  Contact: "null:NULL",
  Street: "null:NULL",
  PostalCode: "null:NULL",
  City: text("Ålesund"),
  Country: text("NO"),
  Phone: "null:NULL",
  Email: "null:NULL",
  CreditLimit: "null:NULL",
  Newsletter: "integer:0",
  Since: text("2026-06-30"),
  LastVisit: "null:NULL",
  Notes: "null:NULL",
};

const waysToAdd = {
  "from the grid": { visitor: visitors.light, open: () => {} },
  "from the grid, without scripts": { visitor: withAndWithoutScripts["without scripts"], open: () => {} },
  "from a record": { visitor: visitors.light, open: (page) => openRecord(page, 4) },
  "from a record, without scripts": {
    visitor: withAndWithoutScripts["without scripts"],
    open: (page) => openRecord(page, 4),
  },
};

for (const [way, { visitor, open }] of Object.entries(waysToAdd)) {
  editTest(`A failed new record stays new until it is right, and is saved once (${way})`, visitor, async ({
    page,
    shop,
    troubles,
  }) => {
    const before = await stored(shop, "Customers");
    await page.goto("/customers.php");
    await open(page);
    await press(page, "Add");
    assert.deepEqual(await buttons(page), ["Save", "Close"]);
    assert.equal(await field(page, "Company").inputValue(), "");

    await field(page, "Company").fill("No town yet");
    await press(page, "Save");
    assert.equal(await message(page), "Record WAS NOT SAVED. See the messages beside the fields.");
    assert.deepEqual(await notes(page), ["Fill in this field.", "Fill in this field."]);
    assert.equal(await field(page, "Company").inputValue(), "No town yet");
    assert.deepEqual(await buttons(page), ["Save", "Close"]);
    assert.deepEqual(await changes(before, shop, "Customers"), unchanged);

    await fillIn(page);
    await press(page, "Save");

    assert.equal(await message(page), "[New record saved ok]");
    assert.deepEqual(await changes(before, shop, "Customers"), { gone: [], come: [added] });
    assert.deepEqual(troubles, []);
  });

  editTest(`Close adds nothing (${way})`, visitor, async ({ page, shop }) => {
    const before = await stored(shop, "Customers");
    await page.goto("/customers.php");
    await open(page);
    await press(page, "Add");
    await fillIn(page);

    await press(page, "Close");

    assert.equal(await kindOfView(page), "view");
    assert.deepEqual(await changes(before, shop, "Customers"), unchanged);
  });
}

editTest("A new record is found in the grid, in the order of the page", visitors.light, async ({ page }) => {
  await page.goto("/customers.php");
  await press(page, "Add");
  await fillIn(page);
  await press(page, "Save");

  await toList(page);
  await press(page, "Last Page");

  assert.equal(await counter(page), "Record 401 of 401 Page 41 of 41");
  assert.deepEqual(await column(page, 2), [`"Æsops" Teer & Co`]);
});

editTest("A new line of an order gets the order's number and the next of its own", visitors.light, async ({ page, shop }) => {
  const before = await stored(shop, "OrderLines");
  await page.goto("/order-lines.php?Order=2997");
  await press(page, "Add");
  assert.equal(await field(page, "OrderID").first().isDisabled(), true);

  await field(page, "Product").selectOption({ label: "Eraser" });
  await field(page, "Quantity").fill("12");
  await field(page, "UnitPrice").fill("0.95");
  await press(page, "Save");

  assert.equal(await message(page), "[New record saved ok]");
  const [eraser] = await stored(shop, "Products", "Name = 'Eraser'");
  const line = {
    OrderID: "integer:2997",
    Line: "integer:6",
    Product: eraser.ID,
    Quantity: "integer:12",
    UnitPrice: "real:0.95",
    Discount: "null:NULL",
  };
  assert.deepEqual(await changes(before, shop, "OrderLines"), { gone: [], come: [line] });
  await toList(page);
  assert.deepEqual(await column(page, 2), ["1", "2", "3", "4", "5", "6"]);
});
