// Every page of the site, for every kind of visitor.

import assert from "node:assert/strict";
import { examples } from "./examples.mjs";
import { siteTest, visitors } from "./site.mjs";
import { testForTrouble } from "./trouble.mjs";

for (const name of ["index.php", ...examples]) testForTrouble(name, name);

for (const name of examples) {
  siteTest(`${name} shows rows and no error`, visitors.light, async ({ page }) => {
    await page.goto(`/${name}`);

    assert.ok((await page.locator("table.DRLOTable td").count()) > 0, "the grid is empty");
    const rest = await page.locator(".example").evaluate((example) => {
      const copy = example.cloneNode(true);
      copy.querySelectorAll("table, h2, .fields, .hint").forEach((part) => part.remove());
      return copy.textContent.trim();
    });
    assert.equal(rest, "");
  });

  siteTest(`${name} shows its own source and the names it uses`, visitors.light, async ({ page }) => {
    await page.goto(`/${name}`);

    const source = page.getByRole("region", { name: "Source of this page" });
    assert.match(await source.innerText(), /\$\w+ = new Dralo\\DbView\(\);/);
    assert.match(await page.locator(".uses").innerText(), /ErrorMessage/);
    await page.getByText("Source of this page").click();
    assert.equal(await source.isVisible(), false);
  });
}
