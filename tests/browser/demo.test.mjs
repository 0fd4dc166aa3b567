// The command ./demo.

import assert from "node:assert/strict";
import { spawn } from "node:child_process";
import { once } from "node:events";
import { readdir, readFile } from "node:fs/promises";
import { createServer } from "node:net";
import { join } from "node:path";
import { test } from "./cases.mjs";
import { freePort, root } from "./site.mjs";

/** Starts ./demo, which ends with the test `t`; `until(text)` waits until it has said that, or has ended. */
function startDemo(t, port) {
  const demo = spawn(join(root, "demo"), [String(port)], { stdio: ["ignore", "pipe", "pipe"] });
  t.after(() => demo.kill("SIGTERM"));
  let said = "";
  const ended = once(demo, "close").then(([code]) => code);
  const until = (text) =>
    new Promise((done) => {
      const look = (more) => {
        said += more;
        if (said.includes(text)) done(said);
      };
      demo.stdout.on("data", look);
      demo.stderr.on("data", look);
      ended.then(() => done(said));
    });
  return { demo, until, ended };
}

/** Processes whose command line names the address. */
async function processesOf(address) {
  const found = [];
  for (const id of await readdir("/proc")) {
    if (!/^\d+$/.test(id)) continue;
    const command = await readFile(`/proc/${id}/cmdline`, "utf8").catch(() => "");
    if (command.includes(address)) found.push(id);
  }
  return found;
}

for (const signal of ["SIGINT", "SIGTERM"]) {
  test(`./demo says its address when it answers and leaves no process behind after ${signal}`, async (t) => {
    const port = await freePort();
    const { demo, until, ended } = startDemo(t, port);

    assert.match(await until(`http://127.0.0.1:${port}/`), new RegExp(`http://127\\.0\\.0\\.1:${port}/`));
    const answer = await fetch(`http://127.0.0.1:${port}/grid.php`);
    assert.equal(answer.status, 200);
    assert.match(await answer.text(), /id="drl1row_1"/);
    assert.ok((await processesOf(`127.0.0.1:${port}`)).length > 1, "no workers");

    demo.kill(signal);
    assert.equal(await ended, 0);
    assert.deepEqual(await processesOf(`127.0.0.1:${port}`), []);
  });
}

test("What visitors edit in ./demo is seen by all pages that edit, and is gone after a new start", async (t) => {
  const port = await freePort();
  const answer = async (page, fields) => {
    const body = fields && new URLSearchParams(fields);
    const site = `http://127.0.0.1:${port}`;
    const post = body && { method: "POST", body, headers: { Origin: site } };
    return (await fetch(`${site}/${page}`, post)).text();
  };
  const saved = async () => {
    const form = await answer("messages.php?Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1FormEdit=1");
    const hidden = [...form.matchAll(/<input type="hidden" name="([^"]+)" value="([^"]*)"/g)].map(([, name, value]) => [name, value]);
    const edited = { Morvu1FormUpdate: "Save", Morvu1_Form_Task: "Mend the kettle", Morvu1_Form_Done: "on" };
    return answer("messages.php", { ...Object.fromEntries(hidden), ...edited });
  };

  for (const isFirst of [true, false]) {
    const { demo, until, ended } = startDemo(t, port);
    await until(`http://127.0.0.1:${port}/`);
    assert.equal((await answer("messages.php")).includes("Mend the kettle"), false);
    if (isFirst) assert.match(await saved(), /\[Record saved ok\]/);
    assert.equal((await answer("messages.php")).includes("Mend the kettle"), isFirst);
    demo.kill("SIGTERM");
    await ended;
  }
});

test("./demo says so when its port is in use", async (t) => {
  const other = createServer().listen(0, "127.0.0.1");
  await once(other, "listening");
  const { port } = other.address();
  const { until, ended } = startDemo(t, port);

  assert.match(await until("in use"), new RegExp(`port ${port} is in use`));
  assert.equal(await ended, 1);
  other.close();
});

for (const port of ["0", "99999", "eight"]) {
  test(`./demo refuses the port ${port}`, async (t) => {
    const { until, ended } = startDemo(t, port);

    assert.match(await until("not a port"), /is not a port/);
    assert.equal(await ended, 1);
  });
}
