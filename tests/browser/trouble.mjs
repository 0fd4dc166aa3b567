// What every page must be free of, for every kind of visitor.

import assert from "node:assert/strict";
import { lowContrasts } from "./contrast.mjs";
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

/** The page that was loaded has all of its images, is no wider than the window and can be read. */
export async function assertNoTrouble(page, troubles) {
  assert.deepEqual(await brokenImages(page), []);
  assert.ok((await sidewaysScroll(page)) <= 0, "the page scrolls sideways");
  assert.deepEqual(await lowContrasts(page), []);
  assert.deepEqual(troubles, []);
}

/** Tests that the page at the address loads without trouble, and keeps a screenshot of it. */
export function testForTrouble(name, address) {
  for (const [kind, visitor] of Object.entries(visitors)) {
    siteTest(`${name} loads without trouble (${kind})`, visitor, async ({ page, troubles }) => {
      await page.goto(`/${address}`);

      await assertNoTrouble(page, troubles);
      await keepScreenshot(page, `${name.replace(".php", "")}-${kind}`);
    });
  }
}
