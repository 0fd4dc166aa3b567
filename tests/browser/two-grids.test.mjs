// Two grids on one page.

import assert from "node:assert/strict";
import { siteTest, visitors } from "./site.mjs";

const firstCell = (page, tag) => page.locator(`[id="drl${tag}cell_1_1"]`);
const button = (page, tag, name) => page.locator(`[name="Morvu${tag}${name}"]`);

siteTest("Each grid turns its own pages and keeps the other one where it is", visitors.light, async ({ page }) => {
  await page.goto("/two-grids.php");
  assert.deepEqual([await firstCell(page, 1).innerText(), await firstCell(page, 2).innerText()], ["1", "1"]);

  await button(page, 1, "NEXT").click();
  assert.deepEqual([await firstCell(page, 1).innerText(), await firstCell(page, 2).innerText()], ["7", "1"]);

  await button(page, 2, "NEXT").click();
  assert.deepEqual([await firstCell(page, 1).innerText(), await firstCell(page, 2).innerText()], ["7", "7"]);

  await button(page, 1, "FIRST").click();
  assert.deepEqual([await firstCell(page, 1).innerText(), await firstCell(page, 2).innerText()], ["1", "7"]);
});
