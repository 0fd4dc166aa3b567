// The example pages, as the site lists them, and the start page.

import { root, run } from "./site.mjs";
import { join } from "node:path";

const list = "echo json_encode(array_merge(...array_values(require $argv[1])));";
const { stdout } = await run("php", ["-n", "-r", list, join(root, "site/frame/examples.php")]);

/** Names of the pages, such as "grid.php". */
export const examples = Object.keys(JSON.parse(stdout));
