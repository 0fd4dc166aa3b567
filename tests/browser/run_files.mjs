// Runs cases of several files of tests in one process, for run_files.py.
//
//     run_files.mjs FD FILE...
//
// Writes to the open file FD, a line of JSON for each: the names of all cases and why files cannot be loaded. Then reads from
// stdin the names of the cases that are to be run, in JSON, and tells the begin and the end of each. An error that no case
// catches ends the process; run_files.py starts another one for the cases that are left.

import { writeSync } from "node:fs";
import { readFile } from "node:fs/promises";
import { basename, resolve } from "node:path";
import { text } from "node:stream/consumers";
import { pathToFileURL } from "node:url";
import { inspect } from "node:util";
import { collectInto, end } from "./cases.mjs";

const [fd, ...files] = process.argv.slice(2);
const tell = (event) => writeSync(Number(fd), `${JSON.stringify(event)}\n`);

/** The cases of a file, as [name, body]. */
async function load(file) {
  if ((await readFile(file, "utf8")).includes('"node:test"')) throw new Error("cases come from cases.mjs, not from node:test");
  const cases = [];
  collectInto(cases);
  await import(pathToFileURL(resolve(file)));
  if (cases.length === 0) throw new Error("there is no case in it");
  if (new Set(cases.map(({ name }) => name)).size < cases.length) throw new Error("two cases have the same name");
  return cases.map(({ name, body }) => [`browser.${basename(file, ".test.mjs")}: ${name}`, body]);
}

async function run(body) {
  const endings = [];
  try {
    await body({ after: (action) => endings.push(action) });
  } finally {
    for (const action of endings) await action();
  }
}

const bodies = new Map();
const broken = {};
for (const file of files) {
  try {
    for (const [name, body] of await load(file)) bodies.set(name, body);
  } catch (error) {
    broken[`browser.${basename(file, ".test.mjs")}`] = inspect(error);
  }
}
tell({ cases: [...bodies.keys()], broken });

for (const name of JSON.parse(await text(process.stdin))) {
  tell({ begins: name });
  const start = performance.now();
  const failure = await run(bodies.get(name)).then(
    () => null,
    (error) => inspect(error),
  );
  tell({ ends: name, failure, milliseconds: Math.round(performance.now() - start) });
}
await end();
