// dralo-serve in a browser: what it shows to every kind of visitor, and the way through it without a mouse.

import assert from "node:assert/strict";
import { field, message } from "./form.mjs";
import { databaseTest, keepScreenshot, servesDatabases, visitors } from "./site.mjs";
import { assertNoTrouble } from "./trouble.mjs";
import { answered, column, press } from "./view.mjs";

const pages = {
  start: "/",
  grid: "/table/Customers",
  view: "/table/OrderTotals",
  record: "/table/Customers?Morvu1FormDisplay=formOneRec&Morvu1PK=2",
  form: "/table/Customers?Morvu1FormDisplay=formOneRec&Morvu1PK=2&Morvu1FormEdit=1",
  add: "/table/Products?Morvu1FormDisplay=formOneRec&Morvu1FormAdd=1",
};

const narrow = { ...visitors.phone, viewport: { width: 375, height: 700 } };

/** Presses Tab until the element that has the focus is one with that text. */
async function tabTo(page, text) {
  for (let i = 0; i < 200; ++i) {
    await page.keyboard.press("Tab");
    const focused = await page.evaluate(() => {
      const one = document.activeElement;
      return (one.innerText || one.value || one.title || "").trim();
    });
    if (focused === text) return;
  }
  assert.fail(`the focus does not reach "${text}"`);
}

function tests() {
  for (const [kind, visitor] of Object.entries({ ...visitors, phone: narrow })) {
    databaseTest(`dralo-serve shows its pages without trouble (${kind})`, visitor, async ({ page, troubles }) => {
      for (const [name, address] of Object.entries(pages)) {
        await page.goto(address);
        await assertNoTrouble(page, troubles);
        await keepScreenshot(page, `serve-${name}-${kind}`);
      }
    });
  }

  databaseTest("The page of dralo-serve for what is not there can be read", narrow, async ({ page }) => {
    await page.goto("/table/Nothing");
    await keepScreenshot(page, "serve-nothing-phone");
    assert.equal(await page.locator("h1").innerText(), "There is no such table");
    await assertNoTrouble(page, []);
  });

  databaseTest("dralo-serve is used by the keyboard alone", visitors.light, async ({ page, troubles }) => {
    await page.goto("/");
    await page.keyboard.press("Tab");
    assert.equal(await page.evaluate(() => document.activeElement.innerText), "Skip to the content");
    await tabTo(page, "Categories");
    await answered(page, () => page.keyboard.press("Enter"));
    await tabTo(page, "Name");
    await answered(page, () => page.keyboard.press("Enter"));
    const names = await column(page, 2);
    assert.deepEqual(names, [...names].sort());
    await tabTo(page, "1");
    await answered(page, () => page.keyboard.press("Enter"));
    await tabTo(page, "Edit");
    await answered(page, () => page.keyboard.press("Enter"));
    await field(page, "Name").focus();
    await page.keyboard.press("Control+A");
    await page.keyboard.type("Typed");
    await answered(page, () => page.keyboard.press("Enter"));
    assert.match(await message(page), /\[Record saved ok\]/);
    assert.deepEqual(troubles, []);
  });

  databaseTest("dralo-serve leads from a reference to its record", visitors.light, async ({ page, troubles }) => {
    await page.goto("/table/Customers");
    await answered(page, () => page.getByRole("link", { name: "Ireland" }).first().click());
    assert.equal(await page.locator("h1").innerText(), "Countries");
    assert.match(await page.locator(".DRLOTableFormDataView").innerText(), /Éire/);
    assert.deepEqual(troubles, []);
  });

  databaseTest("dralo-serve asks before it deletes", visitors.light, async ({ page, troubles }) => {
    const asked = [];
    page.on("dialog", (dialog) => (asked.push(dialog.message()), dialog.accept()));
    await page.goto("/table/Reminders?Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1FormEdit=1");
    await press(page, "Delete");
    assert.deepEqual(asked, ["Delete this record?"]);
    assert.ok(!(await column(page, 1)).includes("1"));
    assert.deepEqual(troubles, []);
  });
}

if (servesDatabases) tests();
