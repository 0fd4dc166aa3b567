// Where the cases of the browser tests go: to node's own runner when a file is run by hand, else to run_files.mjs.

import * as runner from "node:test";

let given;
const endings = [];

/** Cases that are given from now on go into the list `cases` as { name, body } and wait there. */
export function collectInto(cases) {
  given = cases;
}

/** A case. `body` gets { after }, which takes what is to be done when the case has ended. */
export function test(name, body) {
  if (given) given.push({ name, body });
  else runner.test(name, body);
}

/** `action` is done once all cases have ended. */
export function atTheEnd(action) {
  if (given) endings.push(action);
  else runner.after(action);
}

export async function end() {
  for (const action of endings) await action();
}
