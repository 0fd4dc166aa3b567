// What dralo.css promises beyond looks.

import assert from "node:assert/strict";
import { siteTest, visitors } from "./site.mjs";

siteTest("The element with the keyboard's focus has an outline", visitors.light, async ({ page }) => {
  await page.goto("/grid.php");

  for (const selector of ["a.DRLOTableTH", "a.DRLOTable", "input[type=image]"]) {
    await page.locator(selector).first().focus();
    await page.keyboard.press("Tab");
    await page.keyboard.press("Shift+Tab");
    const outline = await page.evaluate(() => getComputedStyle(document.activeElement).outline);
    assert.match(outline, /solid 2px/, selector);
  }
});

siteTest("On a phone a wide grid scrolls in its own box", visitors.phone, async ({ page }) => {
  await page.goto("/grid.php");

  const moved = await page.locator("td:has(> table.DRLOTable)").evaluate((box) => {
    box.scrollLeft = 10_000;
    return { box: box.scrollLeft, page: window.scrollX };
  });
  assert.ok(moved.box > 50, `the box scrolls by ${moved.box} pixels`);
  assert.equal(moved.page, 0);
});

siteTest("Numbers are aligned right, texts left", visitors.light, async ({ page }) => {
  await page.goto("/columns.php");

  const aligned = (number) =>
    page.locator(`[id="drl1cell_1_${number}"]`).evaluate((cell) => getComputedStyle(cell).textAlign);
  assert.match(await aligned(5), /right/);
  assert.match(await aligned(3), /left|start/);
});

siteTest("Paper shows the rows, not what can only be clicked", visitors.light, async ({ page }) => {
  await page.goto("/grid.php");
  await page.emulateMedia({ media: "print" });

  assert.equal(await page.locator("[id=drl1cell_1_2]").isVisible(), true);
  assert.equal(await page.locator("input[type=image]").first().isVisible(), false);
  assert.equal(await page.getByRole("navigation").isVisible(), false);
});
