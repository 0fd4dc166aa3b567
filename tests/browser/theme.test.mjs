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

const form = "Morvu1FormDisplay=formOneRec&Morvu1PK=17&Morvu1FormEdit=1";

siteTest("Every stop of the Tab key in a form has an outline, its controls in their order", visitors.light, async ({
  page,
}) => {
  await page.goto(`/customers.php?${form}`);
  await page.getByRole("button", { name: "Save" }).focus();

  const stops = [];
  for (let stop = 0; stop < 13; stop++) {
    await page.keyboard.press("Tab");
    stops.push(
      await page.evaluate(() => {
        const { name, value } = document.activeElement;
        const label = name.includes("_Form_") ? name.split("_").at(-1) : value;
        return `${label} ${getComputedStyle(document.activeElement).outline.match(/solid 2px/)}`;
      }),
    );
  }

  const fields = ["Company", "Contact", "City", "Country", "Email", "CreditLimit", "Newsletter", "Since", "LastVisit"];
  const expected = ["Close", "Add", "Delete", ...fields, "Notes"];
  assert.deepEqual(stops, expected.map((name) => `${name} solid 2px`));
});

siteTest("A field that cannot be changed looks different from one that can", visitors.dark, async ({ page }) => {
  await page.goto(`/customers.php?${form}`);
  const look = (name) =>
    page
      .locator(`[id="Morvu1_Form_${name}"]`)
      .first()
      .evaluate((control) => [getComputedStyle(control).backgroundColor, getComputedStyle(control).color]);

  const [ground, colour] = await look("ID");
  const [others, colourOfOthers] = await look("Company");
  assert.notEqual(ground, others);
  assert.notEqual(colour, colourOfOthers);
});

siteTest("Controls stay inside the form in windows of any width", visitors.light, async ({ page }) => {
  for (const width of [500, 700, 1000, 1600]) {
    await page.setViewportSize({ width, height: 800 });
    await page.goto(`/customers.php?${form}`);
    const beyond = await page.locator("table.DRLOTableFormDataEdit td > nobr > *, table.DRLOTableFormDataEdit td > *").evaluateAll((all) =>
      all
        .filter((control) => control.getBoundingClientRect().right > document.querySelector("main").getBoundingClientRect().right)
        .map((control) => control.id),
    );
    assert.deepEqual(beyond, [], `${width} pixels`);
  }
});

siteTest("On a phone labels stand above their fields, and fields fit into the window", visitors.phone, async ({ page }) => {
  await page.goto(`/customers.php?${form}`);

  const rows = await page.locator("table.DRLOTableFormDataEdit tr").evaluateAll((all) =>
    all.map((row) => {
      const [label, control] = [row.cells[0], row.querySelector("input:not([type=hidden]), select, textarea")];
      const [above, below] = [label.getBoundingClientRect(), control.getBoundingClientRect()];
      return above.bottom <= below.top + 1 && below.right <= window.innerWidth && below.left >= 0;
    }),
  );
  assert.deepEqual(rows, Array(11).fill(true));
});

siteTest("Every stop of the Tab key in the bar can be seen whole", visitors.phone, async ({ page }) => {
  await page.goto("/bars.php?Morvu1CurrRecord=11");
  await page.getByRole("combobox").focus();

  const stops = [];
  for (let stop = 0; stop < 5; stop++) {
    await page.keyboard.press("Tab");
    stops.push(
      await page.evaluate(() => {
        const { outlineStyle, outlineWidth, outlineOffset } = getComputedStyle(document.activeElement);
        const beyond = Math.max(0, parseFloat(outlineWidth) + parseFloat(outlineOffset));
        const [stop, view] = [document.activeElement, document.activeElement.closest("table:has(form)")].map((one) =>
          one.getBoundingClientRect(),
        );
        const fits = stop.left - beyond >= view.left && stop.right + beyond <= view.right;
        return [document.activeElement.title, outlineStyle, fits].join(" ");
      }),
    );
  }

  const titles = ["First Page", "Previous Page", "Next Page", "Last Page", "Excel export"];
  assert.deepEqual(stops, titles.map((title) => `${title} solid true`));
});

siteTest("A button shows that the mouse is on it, one that does not work does not", visitors.light, async ({ page }) => {
  await page.goto("/bars.php");
  const ground = (element) => element.evaluate((one) => getComputedStyle(one).backgroundColor);
  const [next, previous] = [page.getByTitle("Next Page").first(), page.locator("img[src$='prevpgd.gif']").first()];
  await page.emulateMedia({ reducedMotion: "reduce" });
  const before = await ground(next);

  await next.hover();
  assert.notEqual(await ground(next), before);
  await previous.hover();
  assert.equal(await ground(previous), before);
  assert.equal(await ground(next), before);
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

  await page.goto("/customers.php?Morvu1FormDisplay=formOneRec&Morvu1PK=17");
  assert.equal(await page.getByRole("button", { name: "Edit" }).isVisible(), false);
  assert.equal(await page.getByRole("cell", { name: "Stockholm", exact: true }).isVisible(), true);
});
