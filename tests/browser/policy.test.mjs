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

siteTest("All pages but one are hardened", visitors.light, async ({ page }) => {
  const plain = [];
  for (const name of examples) {
    await page.goto(`/${name}`);
    const source = await page.getByRole("region", { name: "Source of this page" }).innerText();
    if (!source.includes("->Hardened = true;")) plain.push(name);
  }
  assert.deepEqual(plain, ["plain.php"]);
});
