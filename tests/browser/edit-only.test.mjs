// Pages on which a record opens as a form at once.

import assert from "node:assert/strict";
import { buttons, changes, field, kindOfView, message, notes, openRecord, stored, toList } from "./form.mjs";
import { editTest, withAndWithoutScripts } from "./site.mjs";
import { column, counter, press } from "./view.mjs";

for (const [kind, visitor] of Object.entries(withAndWithoutScripts)) {
  editTest(`Records open as forms, are saved, and the form stays (${kind})`, visitor, async ({ page, shop, troubles }) => {
    const before = await stored(shop, "Products");
    await page.goto("/stock.php");
    const names = await column(page, 2);
    const ids = await column(page, 1);

    await openRecord(page, 4);
    assert.equal(await kindOfView(page), "form");
    assert.deepEqual(await buttons(page), ["Save"]);
    assert.equal(await field(page, "Name").first().inputValue(), names[3]);

    await field(page, "InStock").fill("many");
    await press(page, "Save");
    assert.equal(await message(page), "Record WAS NOT SAVED. See the messages beside the fields.");
    assert.deepEqual(await notes(page), ["This is not a number."]);
    assert.equal(await field(page, "InStock").inputValue(), "many");
    await field(page, "InStock").fill("17");
    await field(page, "SoldSince").fill("");
    await field(page, "Category").selectOption({ label: "Paper" });
    await press(page, "Save");
    assert.equal(await message(page), "[Record saved ok]");
    assert.equal(await kindOfView(page), "form");
    assert.equal(await field(page, "Name").first().inputValue(), names[3]);
    const [paper] = await stored(shop, "Categories", "Name = 'Paper'");
    const fourth = before.find((row) => row.ID === `integer:${ids[3]}`);
    const saved = { ...fourth, InStock: "integer:17", SoldSince: "null:NULL", Category: paper.ID };
    assert.deepEqual(await changes(before, shop, "Products"), { gone: [fourth], come: [saved] });

    await press(page, "Next Record");
    assert.equal(await kindOfView(page), "form");
    assert.equal(await field(page, "Name").first().inputValue(), names[4]);
    assert.equal(await message(page), "");
    await field(page, "ReorderAt").fill("33");
    await press(page, "Save");
    assert.equal((await stored(shop, "Products", `ID = ${ids[4]}`))[0].ReorderAt, "integer:33");
    assert.equal(await counter(page), "Record 5 of 120");

    await toList(page);
    assert.equal((await column(page, 2))[0], names[4]);
    assert.deepEqual(troubles, []);
  });
}
