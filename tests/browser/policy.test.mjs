// No page of the site breaks the policy that forbids scripts and styles within a page, whatever is shown.

import assert from "node:assert/strict";
import { examples } from "./examples.mjs";
import { siteTest, visitors } from "./site.mjs";

const policy = "default-src 'self'; form-action 'self'; base-uri 'none'; frame-ancestors 'self'";

/** What a page may be asked for besides itself. */
const views = ["", "?Morvu1CurrRecord=2", "?Morvu1FormDisplay=formOneRec", "?Morvu1FormDisplay=formOneRec&Morvu1FormEdit=1"];
const added = "?Morvu1FormDisplay=formOneRec&Morvu1FormAdd=1";

/** From now on every violation of the policy in the page counts, also one before its first script. */
async function reportViolations(page) {
  const violations = [];
  await page.exposeFunction("violated", (violation) => violations.push(violation));
  await page.addInitScript(() => {
    document.addEventListener("securitypolicyviolation", (event) => {
      window.violated(`${event.violatedDirective} by ${event.blockedURI} ${event.sample} in ${location}`);
    });
  });
  return violations;
}

siteTest("A violation is reported", visitors.light, async ({ page }) => {
  const violations = await reportViolations(page);
  await page.goto("/grid.php");
  await page.evaluate(() => document.body.setAttribute("style", "color: red"));
  await page.waitForFunction(() => document.body.offsetWidth > 0);
  assert.equal(violations.length, 1);
});

for (const name of ["", ...examples]) {
  siteTest(`/${name} breaks no rule of its policy`, visitors.light, async ({ page }) => {
    const violations = await reportViolations(page);
    for (const view of [...views, added]) {
      const answer = await page.goto(`/${name}${view}`);
      assert.equal(answer.headers()["content-security-policy"], policy);
    }
    assert.deepEqual(violations, []);
  });
}

/** Whether the grid shows in the frame of another site, when `change` gives the headers of its answer. */
async function framed(page, url, change) {
  const grid = `${url}/grid.php`;
  const attacker = "http://attacker.example/";
  await page.route(attacker, (route) => route.fulfill({ contentType: "text/html", body: `<iframe src="${grid}"></iframe>` }));
  await page.route(grid, async (route) => {
    const response = await route.fetch();
    await route.fulfill({ response, headers: change(response.headers()) });
  });
  await page.goto(attacker);
  const frame = await (await page.waitForSelector("iframe")).contentFrame();
  return (await frame.locator(".DRLOTable").count()) > 0;
}

siteTest("A page of another site frames the grid only without its policy", visitors.light, async ({ page, url }) => {
  assert.equal(await framed(page, url, (headers) => headers), false);
  await page.unrouteAll();
  assert.equal(await framed(page, url, ({ "content-security-policy": dropped, ...others }) => others), true);
});

siteTest("All pages but one are hardened", visitors.light, async ({ page }) => {
  const plain = [];
  for (const name of examples) {
    await page.goto(`/${name}`);
    const source = await page.getByRole("region", { name: "Source of this page" }).innerText();
    if (!source.includes("->Hardened = true;")) plain.push(name);
  }
  assert.deepEqual(plain, ["plain.php"]);
});
