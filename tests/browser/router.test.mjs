// What the example site gives away and what not.

import assert from "node:assert/strict";
import { get } from "node:http";
import { siteTest, visitors } from "./site.mjs";

/** Status of a request whose path is sent as it stands; a browser would tidy it up first. */
const statusOf = (url, path) =>
  new Promise((done, failed) => {
    const { hostname, port } = new URL(url);
    get({ hostname, port, path }, (answer) => answer.resume().on("end", () => done(answer.statusCode))).on("error", failed);
  });

siteTest("Only pages, style sheets and pictures can be reached", visitors.light, async ({ url }) => {
  for (const path of ["/", "/grid.php", "/grid.php?Morvu1CurrRecord=21", "/dralo.css", "/dralo.js", "/gfx/nextpg.gif", "/icon.svg"]) {
    assert.equal(await statusOf(url, path), 200, path);
  }
  for (const path of [
    "/router.php",
    "/frame/frame.php",
    "/data/make_shop.py",
    "/gfx/make",
    "/gfx/../dralo.css",
    "/../demo",
    "/%2e%2e/demo",
    "/..%2fdemo",
    "//etc/passwd",
    "/grid.php/more",
    "/nothing.php",
    "/nothing.gif",
  ]) {
    assert.equal(await statusOf(url, path), 404, path);
  }
});

siteTest("A missing page says so and leads back", visitors.light, async ({ page }) => {
  await page.goto("/nothing.php");

  await page.getByRole("link", { name: "start page" }).click();
  assert.equal(new URL(page.url()).pathname, "/");
});
