// The fixture of the browser tests: a PHP server with the example shop, and a page of a Chromium that all cases share.

import assert from "node:assert/strict";
import { execFile, spawn } from "node:child_process";
import { copyFile, mkdir, mkdtemp, readFile, rm } from "node:fs/promises";
import { createServer } from "node:net";
import { once } from "node:events";
import { tmpdir } from "node:os";
import { join, resolve } from "node:path";
import { setTimeout as pause } from "node:timers/promises";
import { promisify } from "node:util";
import { chromium } from "playwright-core";
import { atTheEnd, test } from "./cases.mjs";

export const root = resolve(import.meta.dirname ?? new URL(".", import.meta.url).pathname, "../..");
export const run = promisify(execFile);

const extension = process.env.DRALO_EXTENSION ?? join(root, "build/release/dralo.so");
const screenshots = join(root, "build/screenshots");

/** What a visitor may have: each page must work in all of them. */
export const visitors = {
  light: { viewport: { width: 1280, height: 800 }, colorScheme: "light" },
  dark: { viewport: { width: 1280, height: 800 }, colorScheme: "dark" },
  phone: { viewport: { width: 390, height: 780 }, colorScheme: "light", deviceScaleFactor: 2, hasTouch: true },
};

/** Visitors whose browser runs the page's scripts, and visitors whose browser runs none. */
export const withAndWithoutScripts = {
  "with scripts": visitors.light,
  "without scripts": { ...visitors.light, javaScriptEnabled: false },
};

let browser;
let folder;
let sharedSite;

atTheEnd(async () => {
  await browser?.close();
  await sharedSite?.server.stop();
  if (folder) await rm(folder, { recursive: true });
});

/** The browser of all cases; when it has crashed, a new one. */
async function theBrowser() {
  if (browser?.isConnected()) return browser;
  browser = await chromium.launch({
    executablePath: "/usr/bin/chromium",
    args: [
      "--headless",
      "--no-sandbox",
      "--disable-gpu",
      "--disable-quic",
      "--no-first-run",
      "--disable-background-networking",
      "--disable-component-update",
      "--disable-sync",
    ],
  });
  return browser;
}

/** A folder of its own for a case, inside that of the process. */
async function freshFolder() {
  if (!folder) {
    await run("php", ["-n", "-d", `extension=${extension}`, "-r", "exit(extension_loaded('dralo') ? 0 : 1);"]);
    folder = await mkdtemp(join(tmpdir(), "dralo-browser-"));
  }
  return mkdtemp(join(folder, "test-"));
}

let madeShop;

async function makeShop() {
  const shop = join(await freshFolder(), "shop.db");
  await run(join(root, "site/data/make_shop.py"), [shop]);
  return shop;
}

/** A copy of the shop that nobody else uses. */
async function freshShop() {
  const shop = await (madeShop ??= makeShop());
  const copy = join(await freshFolder(), "shop.db");
  await copyFile(shop, copy);
  return copy;
}

/** A new database made by the statements. */
async function freshDatabase(statements) {
  const file = join(await freshFolder(), "test.db");
  const made = run("sqlite3", ["-bail", file]);
  made.child.stdin.end(statements);
  await made;
  return file;
}

export async function freePort() {
  // Below those that the system gives to clients: none of them takes it before the server does.
  for (;;) {
    const port = 10_000 + Math.floor(Math.random() * 22_000);
    const probe = createServer().listen(port, "127.0.0.1");
    try {
      await once(probe, "listening");
    } catch {
      continue;
    }
    probe.close();
    await once(probe, "close");
    return port;
  }
}

async function answers(url) {
  try {
    return (await fetch(url)).ok;
  } catch {
    return false;
  }
}

/** Starts PHP's server for the pages of a folder. */
async function startServer(pages, environment) {
  const port = await freePort();
  const words = ["-n", "-d", `extension=${extension}`, "-S", `127.0.0.1:${port}`, "-t", pages, join(pages, "router.php")];
  return startProgram(port, "php", words, environment, "/gfx/nextpg.gif");
}

/** Starts a program that serves on the port. `log()` is what it has said so far; `stop()` ends it. */
async function startProgram(port, command, words, environment, firstPage) {
  const url = `http://127.0.0.1:${port}`;
  const server = spawn(command, words, { env: { ...process.env, ...environment, LC_ALL: "C" }, stdio: ["ignore", "pipe", "pipe"] });
  let said = "";
  server.stdout.on("data", (text) => (said += text));
  server.stderr.on("data", (text) => (said += text));
  const ended = once(server, "exit");
  const stop = async () => {
    if (server.exitCode === null && server.signalCode === null) server.kill("SIGTERM");
    await ended;
  };

  const last = Date.now() + 120_000;
  while (!(await answers(`${url}${firstPage}`))) {
    if (server.exitCode !== null || Date.now() > last) {
      await stop();
      assert.fail(`the server does not answer; it said:\n${said}`);
    }
    await pause(50);
  }
  return { url, stop, runs: () => server.exitCode === null && server.signalCode === null, log: () => said };
}

/** What goes wrong in a page without a visitor's doing: errors of scripts, requests that fail. */
function watch(page) {
  const troubles = [];
  page.on("console", (message) => message.type() === "error" && troubles.push(`console: ${message.text()}`));
  page.on("pageerror", (error) => troubles.push(`script: ${error.message}`));
  // A page that is left while it loads has its requests aborted.
  page.on("requestfailed", (request) => {
    if (request.failure().errorText !== "net::ERR_ABORTED") troubles.push(`no answer: ${request.url()}`);
  });
  page.on("response", (response) => response.status() >= 400 && troubles.push(`${response.status()}: ${response.url()}`));
  return troubles;
}

/** A case with a server and a page. When it fails, what the server said is printed. `release` is done after it. */
function serverTest(name, visitor, start, body, release) {
  test(name, async () => {
    const { server, ...given } = await start();
    const before = server.log().length;
    try {
      const context = await (await theBrowser()).newContext({ ...visitor, baseURL: server.url });
      try {
        context.setDefaultTimeout(60_000);
        const page = await context.newPage();
        await body({ page, url: server.url, ...given, troubles: watch(page) });
      } finally {
        await context.close();
      }
    } catch (error) {
      console.error(`The server of "${name}" said:\n${server.log().slice(before)}`);
      throw error;
    } finally {
      await release({ server, ...given });
    }
  });
}

const stopServer = ({ server }) => server.stop();

async function startSite() {
  const shop = await freshShop();
  return { shop, server: await startServer(join(root, "site"), { DRALO_SHOP_DB: shop, DRALO_OPEN_SHOP_DB: shop }) };
}

/** The example site of all cases that change nothing. */
async function theSite() {
  if (!sharedSite?.server.runs()) sharedSite = await startSite();
  return sharedSite;
}

async function staysAsItWas({ server, shop }) {
  if ((await readFile(shop)).equals(await readFile(await madeShop))) return;
  sharedSite = undefined;
  await server.stop();
  assert.fail("the shop of all cases was changed; a case that changes it is an editTest");
}

/** A case that changes nothing on the example site. `body` gets { page, url, shop, troubles }; `shop` is the pages' database. */
export function siteTest(name, visitor, body) {
  serverTest(name, visitor, theSite, body, staysAsItWas);
}

/** A case with an example site and a shop of its own. */
export function editTest(name, visitor, body) {
  serverTest(name, visitor, startSite, body, stopServer);
}

/** A case with the pages in "served" and a database made by `statements`. `body` gets { page, url, database, troubles }. */
export function servedTest(name, visitor, statements, body) {
  const start = async () => {
    const database = await freshDatabase(statements);
    return { database, server: await startServer(join(root, "tests/browser/served"), { DRALO_TEST_DATABASE: database }) };
  };
  serverTest(name, visitor, start, body, stopServer);
}

/** Whether dralo-serve was built: its tests need it. */
export const servesDatabases = Boolean(process.env.DRALO_SERVE);

/** A case with dralo-serve over a shop of its own. `body` gets { page, url, shop, troubles }. */
export function databaseTest(name, visitor, body, options = ["--edit"]) {
  const start = async () => {
    const shop = await freshShop();
    const port = await freePort();
    return { shop, server: await startProgram(port, process.env.DRALO_SERVE, [shop, "--port", `${port}`, ...options], {}, "/") };
  };
  serverTest(name, visitor, start, body, stopServer);
}

/** With DRALO_SCREENSHOTS in the environment, keeps a picture of the whole page in build/screenshots for people to look at. */
export async function keepScreenshot(page, name) {
  if (!process.env.DRALO_SCREENSHOTS) return;
  await mkdir(screenshots, { recursive: true });
  await page.screenshot({ path: join(screenshots, `${name}.png`), fullPage: true });
}
