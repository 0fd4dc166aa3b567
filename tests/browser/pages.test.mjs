// Every page of the site, for every kind of visitor.

import assert from "node:assert/strict";
import { lowContrasts } from "./contrast.mjs";
import { examples } from "./examples.mjs";
import { keepScreenshot, siteTest, visitors } from "./site.mjs";

/** Addresses of the images that did not come. */
const brokenImages = (page) =>
  page.evaluate(() =>
    [...document.querySelectorAll("img, input[type=image]")]
      .filter((image) => (image.tagName === "IMG" ? image.naturalWidth === 0 : image.offsetWidth === 0))
      .map((image) => image.src),
  );

/** By how many pixels the page is wider than the window. */
const sidewaysScroll = (page) => page.evaluate(() => document.documentElement.scrollWidth - window.innerWidth);

for (const [kind, visitor] of Object.entries(visitors)) {
  for (const name of ["index.php", ...examples]) {
    siteTest(`${name} loads without trouble (${kind})`, visitor, async ({ page, troubles }) => {
      await page.goto(`/${name}`);

      assert.deepEqual(await brokenImages(page), []);
      assert.ok((await sidewaysScroll(page)) <= 0, "the page scrolls sideways");
      assert.deepEqual(await lowContrasts(page), []);
      assert.deepEqual(troubles, []);
      await keepScreenshot(page, `${name.replace(".php", "")}-${kind}`);
    });
  }
}

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
