// Records whose keys are not plain numbers.

import assert from "node:assert/strict";
import { changes, field, kindOfView, message, openRecord, shownRecord, stored, text, toList, unchanged } from "./form.mjs";
import { editTest, servedTest, visitors, withAndWithoutScripts } from "./site.mjs";
import { column, counter, press } from "./view.mjs";

for (const [kind, visitor] of Object.entries(withAndWithoutScripts)) {
  editTest(`Two columns together say which record is meant (${kind})`, visitor, async ({ page, shop, troubles }) => {
    const before = await stored(shop, "OrderLines");
    await page.goto("/order-lines.php?Order=2986");
    await openRecord(page, 3);
    const { Order, Line } = await shownRecord(page);
    assert.deepEqual([Order, Line], ["2986", "3"]);

    await press(page, "Edit");
    assert.equal(await field(page, "OrderID").first().inputValue(), "2986");
    assert.equal(await field(page, "Line").first().inputValue(), "3");
    await field(page, "Quantity").fill("77");
    await press(page, "Save");

    assert.equal(await message(page), "[Record saved ok]");
    const third = before.find((row) => row.OrderID === "integer:2986" && row.Line === "integer:3");
    const saved = { ...third, Quantity: "integer:77" };
    assert.deepEqual(await changes(before, shop, "OrderLines"), { gone: [third], come: [saved] });
    await toList(page);
    assert.equal((await column(page, 4))[0], "77");
    assert.equal(await page.getByLabel("Order").inputValue(), "2986");
    assert.deepEqual(troubles, []);
  });
}

const words = [
  "plain",
  "O'Neil",
  `the "quoted"`,
  "a, b, c",
  "two  blanks and a\ttab",
  "50 % & more + 1 = 2?",
  "C:\\new\\table",
  "Größe/Ærø #1",
  "見出し語 🍵",
  "<b>&amp;</b>",
  "');document.title=('taken",
  "&#39;);document.title=(&#39;taken",
];
const quoted = (value) => `'${value.replaceAll("'", "''")}'`;
const wordTable = [
  "CREATE TABLE Words (Word VARCHAR(60) NOT NULL PRIMARY KEY, Meaning VARCHAR(60));",
  ...words.map((word, number) => `INSERT INTO Words VALUES (${quoted(word)}, 'Meaning ${number}');`),
].join("\n");

for (const [kind, visitor] of Object.entries(withAndWithoutScripts)) {
  servedTest(`Keys of any signs are opened, edited and deleted (${kind})`, visitor, wordTable, async ({
    page,
    database,
    troubles,
  }) => {
    for (const [number, word] of words.entries()) {
      const before = await stored(database, "Words");
      await page.goto("/words.php");
      await openRecord(page, number + 1);
      assert.equal((await shownRecord(page)).Meaning, `Meaning ${number}`, word);

      await press(page, "Edit");
      assert.equal(await kindOfView(page), "form", word);
      assert.equal(await field(page, "Word").first().inputValue(), word);
      await field(page, "Meaning").fill(`Means ${word}`);
      await press(page, "Save");

      assert.equal(await message(page), "[Record saved ok]", word);
      assert.deepEqual(await changes(before, database, "Words"), {
        gone: [{ Word: text(word), Meaning: text(`Meaning ${number}`) }],
        come: [{ Word: text(word), Meaning: text(`Means ${word}`) }],
      });
    }

    const before = await stored(database, "Words");
    await page.goto("/words.php");
    await openRecord(page, 4);
    await press(page, "Edit");
    await press(page, "Delete");
    assert.equal(await message(page), "[Record deleted]");
    const gone = [{ Word: text("a, b, c"), Meaning: text("Means a, b, c") }];
    assert.deepEqual(await changes(before, database, "Words"), { gone, come: [] });
    assert.equal(await page.title(), "Test");
    assert.deepEqual(troubles, []);
  });
}

const places = `CREATE TABLE Places (Town VARCHAR(40) NOT NULL, Number INTEGER NOT NULL, Name VARCHAR(40),
                                     PRIMARY KEY (Town, Number));
                INSERT INTO Places VALUES ('Saint John''s', 1, 'One'), ('Saint John''s', 2, 'Two'), ('Łódź "B"', 1, 'Three');`;

servedTest("A text and a number together say which record is meant", visitors.light, places, async ({ page, database }) => {
  const before = await stored(database, "Places");
  for (const [row, town, number] of [
    [2, "Saint John's", 2],
    [3, 'Łódź "B"', 1],
  ]) {
    await page.goto("/places.php");
    await openRecord(page, row);
    await press(page, "Edit");
    assert.equal(await field(page, "Town").inputValue(), town);
    await field(page, "Name").fill(`${town} ${number}`);
    await press(page, "Save");
    assert.equal(await message(page), "[Record saved ok]");
    assert.equal(await counter(page), `Record ${row} of 3`);
  }

  const [, second, third] = before;
  assert.deepEqual(await changes(before, database, "Places"), {
    gone: [second, third],
    come: [
      { ...second, Name: text("Saint John's 2") },
      { ...third, Name: text('Łódź "B" 1') },
    ],
  });
});

servedTest("A key that is typed anew and belongs to no record changes nothing", visitors.light, places, async ({
  page,
  database,
}) => {
  const before = await stored(database, "Places");
  await page.goto("/places.php");
  await openRecord(page, 1);
  await press(page, "Edit");
  await field(page, "Number").fill("9");

  await press(page, "Save");

  assert.match(await page.locator(".error").innerText(), / in UpdateRecord\./);
  assert.equal(await field(page, "Number").inputValue(), "9");
  assert.deepEqual(await changes(before, database, "Places"), unchanged);
});

servedTest("Without keys nothing can be saved, and the page says so", withAndWithoutScripts["without scripts"], places, async ({
  page,
  database,
}) => {
  const before = await stored(database, "Places");
  await page.goto("/places.php?NoKeys=1");
  await openRecord(page, 2);
  await press(page, "Edit");
  assert.equal(await field(page, "Name").inputValue(), "Two");
  await field(page, "Name").fill("Changed");

  await press(page, "Save");

  assert.match(await page.locator(".error").innerText(), /^Dralo property EditPrimaryKeys must be set!$/m);
  assert.equal(await field(page, "Name").inputValue(), "Changed");
  assert.deepEqual(await changes(before, database, "Places"), unchanged);
});
