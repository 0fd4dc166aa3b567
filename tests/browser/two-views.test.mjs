// Two views on one page, each edited without disturbing the other.

import assert from "node:assert/strict";
import { changes, field, kindOfView, message, openRecord, shownRecord, stored, text, toList } from "./form.mjs";
import { servedTest, withAndWithoutScripts } from "./site.mjs";
import { column, counter, press } from "./view.mjs";

const names = ["Adzuki", "Barley", "Cocoa", "Dill", "Elder", "Fig", "Ginger", "Hops"];
const items = `CREATE TABLE Items (ID INTEGER PRIMARY KEY, Name VARCHAR(20) NOT NULL);
               INSERT INTO Items (Name) VALUES ${names.map((name) => `('${name}')`).join(", ")};`;

for (const [kind, visitor] of Object.entries(withAndWithoutScripts)) {
  servedTest(`Editing in one view leaves the page of the other (${kind})`, visitor, items, async ({
    page,
    database,
    troubles,
  }) => {
    const before = await stored(database, "Items");
    await page.goto("/two-views.php");
    await press(page, "Next Page", 2);
    await openRecord(page, 1, 1);
    await press(page, "Edit", 1);
    assert.equal(await counter(page, 2), "Records (4..6) of 8 Page 2 of 3");

    await field(page, "Name", 1).fill("");
    await press(page, "Save", 1);
    assert.equal(await message(page, 1), "Record WAS NOT SAVED. Fill out all required fields.");
    await field(page, "Name", 1).fill("Almond");
    await press(page, "Save", 1);

    assert.equal(await message(page, 1), "[Record saved ok]");
    const come = [{ ID: "integer:1", Name: text("Almond") }];
    assert.deepEqual(await changes(before, database, "Items"), { gone: [before[0]], come });
    assert.equal(await counter(page, 2), "Records (4..6) of 8 Page 2 of 3");
    assert.deepEqual(troubles, []);
  });

  servedTest(`What the other view does saves nothing again (${kind})`, visitor, items, async ({ page, database }) => {
    const before = await stored(database, "Items");
    await page.goto("/two-views.php");
    await openRecord(page, 2, 1);
    await press(page, "Add", 1);
    await field(page, "Name", 1).fill("Ivy");
    await press(page, "Save", 1);
    const come = [{ ID: "integer:9", Name: text("Ivy") }];
    assert.deepEqual(await changes(before, database, "Items"), { gone: [], come });

    await press(page, "Next Page", 2);
    await press(page, "Next Page", 2);
    await openRecord(page, 1, 2);
    await press(page, "Previous Record", 2);

    assert.deepEqual(await changes(before, database, "Items"), { gone: [], come });
    assert.equal(await kindOfView(page, 2), "view");
    assert.equal((await shownRecord(page, 2)).Name, "Fig");
  });

  servedTest(`Both views edit their own record at the same time (${kind})`, visitor, items, async ({ page, database }) => {
    const before = await stored(database, "Items");
    await page.goto("/two-views.php");
    await openRecord(page, 2, 1);
    await openRecord(page, 3, 2);
    await press(page, "Edit", 1);
    await press(page, "Edit", 2);
    assert.equal(await field(page, "Name", 1).inputValue(), "Barley");
    assert.equal(await field(page, "Name", 2).inputValue(), "Cocoa");

    await field(page, "Name", 2).fill("Chicory");
    await press(page, "Save", 2);
    assert.equal(await message(page, 2), "[Record saved ok]");
    assert.equal(await field(page, "Name", 1).inputValue(), "Barley");

    await field(page, "Name", 1).fill("Basil");
    await press(page, "Save", 1);
    assert.equal(await message(page, 1), "[Record saved ok]");

    const [, second, third] = before;
    const come = [
      { ...second, Name: text("Basil") },
      { ...third, Name: text("Chicory") },
    ];
    assert.deepEqual(await changes(before, database, "Items"), { gone: [second, third], come });

    if ((await kindOfView(page, 1)) === "form") await press(page, "Close", 1);
    await toList(page, "List", 1);
    assert.deepEqual(await column(page, 2, 1), ["Basil", "Chicory", "Dill"]);
    assert.notEqual(await kindOfView(page, 2), "grid");
  });
}
