// A hardened page: no value brings a script along, and no button needs one within the page.

import assert from "node:assert/strict";
import { field, kindOfView, message, openRecord } from "./form.mjs";
import { servedTest, visitors, withAndWithoutScripts } from "./site.mjs";
import { answered, button, choosePageSize, column, counter, pageSize, press, valuesOf, viewOf } from "./view.mjs";

/** Texts that call hit() in one place of a page or another. */
const attacks = [
  "<img src=/gfx/none.gif onerror=hit()>",
  "<script>hit()</script>",
  `" onmouseover="hit()`,
  "' onmouseover='hit()",
  "x onmouseover=hit()",
  "--><img src=/gfx/none.gif onerror=hit()>",
  "');hit();('",
  `");hit();("`,
  "&#39;);hit();(&#39;",
  "hit()",
  "${hit()}",
  "javascript:hit()",
  " java\tscript:hit()",
  "javascript&colon;hit()",
  "</textarea><img src=/gfx/none.gif onerror=hit()>",
  "</script><img src=/gfx/none.gif onerror=hit()>",
  "</option></select><img src=/gfx/none.gif onerror=hit()>",
  "\\",
];

const tableOf = (words) =>
  "CREATE TABLE Words (ID INTEGER PRIMARY KEY, W VARCHAR(80), Other INTEGER); " +
  words.map((word) => `INSERT INTO Words (W) VALUES ('${word.replaceAll("'", "''")}');`).join(" ");

/** How often values have run on a page whose elements were all touched; links that would run count, too. */
async function hitsOn(page, address) {
  // A button that was touched before may have begun to lead elsewhere.
  await page.goto(address).catch(() => page.goto(address));
  return page.evaluate(() => {
    for (const one of document.querySelectorAll("table *")) {
      one.dispatchEvent(new MouseEvent("mouseover"));
      one.dispatchEvent(new MouseEvent("click"));
    }
    window.stop();
    return window.hits + [...document.links].filter((link) => link.protocol === "javascript:").length;
  });
}

const everyPage = (query) => [
  `/hardened.php?Templates=1${query}`,
  ...attacks.map((_, at) => `/hardened.php?Templates=1&Morvu1FormDisplay=formOneRec&Morvu1PK=${at + 1}${query}`),
  `/hardened.php?Templates=1&Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1FormEdit=1${query}`,
];

servedTest("No value runs", visitors.light, tableOf(attacks), async ({ page }) => {
  await page.addInitScript(() => {
    window.hits = 0;
    window.hit = () => (window.hits += 1);
    // Links and buttons are touched, not followed.
    document.addEventListener("click", (event) => event.preventDefault(), true);
  });
  let plain = 0;
  for (const address of everyPage("&Plain=1")) plain += await hitsOn(page, address);
  assert.ok(plain > 30, `only ${plain} hits on the plain page`);

  for (const address of everyPage("")) assert.equal(await hitsOn(page, address), 0, address);
  assert.equal(await page.locator(".error").innerText(), "");
});

const words = Array.from({ length: 12 }, (_, at) => `word ${at + 1}`);

for (const [name, visitor] of Object.entries(withAndWithoutScripts)) {
  const hasScripts = name === "with scripts";

  servedTest(`All buttons work under a strict policy ${name}`, visitor, tableOf(words), async ({ page, database, troubles }) => {
    const asked = [];
    page.on("dialog", (dialog) => (asked.push(dialog.message()), dialog.accept()));
    await page.goto("/hardened.php");

    if (hasScripts) {
      await choosePageSize(page, 5);
    } else {
      await pageSize(page).selectOption({ label: "5" });
      await press(page, "OK");
    }
    await press(page, "Next");
    assert.equal(await counter(page), "Records (6..10) of 12 Page 2 of 3");

    await openRecord(page, 2);
    assert.equal(await kindOfView(page), "view");
    await press(page, "Edit");
    assert.equal(await field(page, "W").inputValue(), "word 7");
    await field(page, "W").fill("<new>");
    await press(page, "Save");
    // The caption of Edit is text of the page, too.
    assert.match(await message(page), /\[Record saved ok\]$/);
    assert.equal(await kindOfView(page), "view");

    await press(page, "Edit");
    await press(page, "Delete");
    if (!hasScripts) {
      assert.ok((await viewOf(page).locator(".DraloEditBtnBar").innerText()).startsWith("Delete this word?"));
      assert.equal(await field(page, "W").inputValue(), "<new>");
      await press(page, "Delete");
    }
    assert.deepEqual(asked, hasScripts ? ["Delete this word?"] : []);
    assert.deepEqual(await valuesOf(database, "SELECT ID FROM Words WHERE ID BETWEEN 6 AND 8"), ["6", "8"]);

    await page.goto("/hardened.php");
    await answered(page, () => viewOf(page).getByRole("link", { name: "Add" }).click());
    await field(page, "W").fill("added");
    await press(page, "Save");
    assert.deepEqual(await valuesOf(database, "SELECT W FROM Words ORDER BY ID DESC LIMIT 1"), ["added"]);
    assert.deepEqual(troubles, []);
  });
}

servedTest("A no to the question deletes nothing, and Save then saves", visitors.light, tableOf(words), async (given) => {
  const { page, database, troubles } = given;
  page.on("dialog", (dialog) => dialog.dismiss());
  await page.goto("/hardened.php?Morvu1FormDisplay=formOneRec&Morvu1PK=3&Morvu1FormEdit=1");

  await button(page, "Delete").click();
  await field(page, "W").fill("kept");
  await press(page, "Save");

  assert.deepEqual(await valuesOf(database, "SELECT W FROM Words WHERE ID = 3"), ["kept"]);
  assert.deepEqual(troubles, []);
});

servedTest("Each record of a page has an Edit button of its own", visitors.light, tableOf(words), async ({ page }) => {
  await page.goto("/hardened.php");
  assert.equal((await column(page, 2))[1], "word 2");
  await openRecord(page, 2);
  await press(page, "Edit");
  assert.equal(await field(page, "W").inputValue(), "word 2");
});
