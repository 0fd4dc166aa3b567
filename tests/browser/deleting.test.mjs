// Deleting a record, and the question before it.

import assert from "node:assert/strict";
import { buttons, changes, field, kindOfView, message, openRecord, shownRecord, stored, toList, unchanged } from "./form.mjs";
import { editTest, servedTest, visitors, withAndWithoutScripts } from "./site.mjs";
import { button, column, press } from "./view.mjs";

/** Answers every question of the page's scripts; returns the questions. */
function answerQuestions(page, yes) {
  const asked = [];
  page.on("dialog", (dialog) => {
    asked.push(dialog.message());
    return yes ? dialog.accept() : dialog.dismiss();
  });
  return asked;
}

/** Opens the form of the second line of an order. */
async function editSecondLine(page) {
  await page.goto("/order-lines.php?Order=2997");
  await openRecord(page, 2);
  await press(page, "Edit");
}

editTest("Delete asks, and deletes after a yes", visitors.light, async ({ page, shop, troubles }) => {
  const before = await stored(shop, "OrderLines");
  const asked = answerQuestions(page, true);
  await editSecondLine(page);

  await press(page, "Delete");

  assert.deepEqual(asked, ["Delete this line?"]);
  assert.equal(await message(page), "[Record deleted]");
  const [second] = before.filter(({ OrderID, Line }) => OrderID === "integer:2997" && Line === "integer:2");
  assert.deepEqual(await changes(before, shop, "OrderLines"), { gone: [second], come: [] });
  assert.equal(await kindOfView(page), "grid");
  assert.equal((await column(page, 2))[0], "3");
  assert.deepEqual(troubles, []);
});

editTest("After a no nothing is deleted, and the form is as it was", visitors.light, async ({ page, shop }) => {
  const before = await stored(shop, "OrderLines");
  const asked = answerQuestions(page, false);
  await editSecondLine(page);
  await field(page, "Quantity").fill("99");

  await button(page, "Delete").click();

  assert.deepEqual(asked, ["Delete this line?"]);
  assert.equal(await field(page, "Quantity").inputValue(), "99");
  assert.deepEqual(await changes(before, shop, "OrderLines"), unchanged);
});

editTest("After a no the form can still be saved", visitors.light, async ({ page, shop }) => {
  answerQuestions(page, false);
  await editSecondLine(page);
  await field(page, "Quantity").fill("99");
  await button(page, "Delete").click();

  await press(page, "Save");

  assert.equal(await message(page), "[Record saved ok]");
  assert.equal((await stored(shop, "OrderLines", "OrderID = 2997 AND Line = 2"))[0].Quantity, "integer:99");
});

editTest("Without scripts the page asks before it deletes", withAndWithoutScripts["without scripts"], async ({
  page,
  shop,
}) => {
  await editSecondLine(page);

  await press(page, "Delete");
  assert.equal(await message(page), "Delete this line?");
  assert.deepEqual(await buttons(page), ["Delete", "Close"]);
  await press(page, "Close");
  assert.equal((await stored(shop, "OrderLines", "OrderID = 2997 AND Line = 2")).length, 1);

  await press(page, "Edit");
  await press(page, "Delete");
  await press(page, "Delete");
  assert.equal(await message(page), "[Record deleted]");
  assert.deepEqual(await stored(shop, "OrderLines", "OrderID = 2997 AND Line = 2"), []);
});

editTest("What the page refuses to delete stays, and it says why", visitors.light, async ({ page, shop }) => {
  const before = await stored(shop, "Customers");
  answerQuestions(page, true);
  await page.goto("/customers.php");
  await openRecord(page, 2);
  await press(page, "Edit");

  await press(page, "Delete");

  assert.match(await message(page), /^Record WAS NOT DELETED\. .*A customer with orders cannot be deleted\.$/);
  assert.deepEqual(await changes(before, shop, "Customers"), unchanged);
});

const items = "CREATE TABLE Items (ID INTEGER PRIMARY KEY, Name VARCHAR(20) NOT NULL);";

servedTest("After the last record was deleted the page still says so and offers Add", visitors.light,
  `${items} INSERT INTO Items VALUES (7, 'Only one');`, async ({ page, database }) => {
    await page.goto("/two-views.php");
    await openRecord(page, 1);
    await press(page, "Edit");

    await press(page, "Delete");

    assert.equal(await message(page), "[Record deleted]");
    assert.deepEqual(await buttons(page), ["Add"]);
    assert.deepEqual(await stored(database, "Items"), []);

    await press(page, "Add");
    await field(page, "Name").fill("First again");
    await press(page, "Save");
    assert.equal(await message(page), "[New record saved ok]");
    assert.equal((await shownRecord(page)).Name, "First again");
  });
