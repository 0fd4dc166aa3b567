// The words of the navigation bar in the languages that are built in and in one that is not.

import assert from "node:assert/strict";
import { siteTest, visitors } from "./site.mjs";
import { counter, press, viewOf } from "./view.mjs";

const languages = [
  {
    name: "English",
    counter: "Records (5..8) of 120 Page 2 of 30",
    buttons: ["First Page", "Previous Page", "Next Page", "Last Page"],
    select: "Records per Page",
  },
  {
    name: "German",
    counter: "Datensätze (5..8) von 120 Seite 2 von 30",
    buttons: ["Erste Seite", "Vorherige Seite", "Nächste Seite", "Letzter Seite"],
    select: "Datensätze pro Seite",
  },
  {
    name: "Norwegian",
    counter: "poster (5..8) av 120 side 2 av 30",
    buttons: ["Første side", "Forrige side", "Neste side", "Siste side"],
    select: "Poster per side",
  },
  {
    name: "Polish, a list of the page's own",
    counter: "Rekordy (5..8) z 120 Strona 2 z 30",
    buttons: ["Pierwsza Strona", "Poprzednia Strona", "Następna Strona", "Ostatnia Strona"],
    select: "Rekordów na stronie",
  },
];

for (const [number, language] of languages.entries()) {
  siteTest(`The bar speaks ${language.name}`, visitors.light, async ({ page }) => {
    const tag = number + 1;
    await page.goto("/languages.php");

    await press(page, language.buttons[2], tag);

    assert.equal(await counter(page, tag), language.counter);
    const titles = await viewOf(page, tag)
      .locator("td.DRLOTableNavBar:first-child")
      .getByRole("button")
      .evaluateAll((buttons) => buttons.map((one) => one.title));
    assert.deepEqual(titles, language.buttons);
    const label = await viewOf(page, tag).locator("td:has(> select)").innerText();
    assert.equal(label.split(/\s:\s/)[0], language.select);
  });
}
