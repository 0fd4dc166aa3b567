// Files that scripts make: the shop's database and the pictures of the navigation bar.

import assert from "node:assert/strict";
import { mkdtemp, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { test } from "./cases.mjs";
import { root, run } from "./site.mjs";

test("The shop is the same, byte for byte, however often it is made", async () => {
  const folder = await mkdtemp(join(tmpdir(), "dralo-shop-"));
  try {
    const dumps = [];
    for (const name of ["one.db", "other.db"]) {
      await run(join(root, "site/data/make_shop.py"), [join(folder, name)]);
      dumps.push((await run("sqlite3", [join(folder, name), ".dump"], { maxBuffer: 1 << 26 })).stdout);
    }
    assert.match(dumps[0], /INSERT INTO Customers VALUES\(400,/);
    assert.ok(dumps[0] === dumps[1], "the dumps differ");
  } finally {
    await rm(folder, { recursive: true });
  }
});

test("The pictures of the navigation bar are what their script makes of the drawings", async () => {
  await run(join(root, "assets/gfx/make"), ["--check"]);
});
