// The fixture of the browser tests: a PHP server of its own with a fresh copy of the example shop, and a Chromium page.

import assert from "node:assert/strict";
import { execFile, spawn } from "node:child_process";
import { copyFile, mkdir, mkdtemp, rm } from "node:fs/promises";
import { createServer } from "node:net";
import { once } from "node:events";
import { tmpdir } from "node:os";
import { join, resolve } from "node:path";
import { after, test } from "node:test";
import { setTimeout as pause } from "node:timers/promises";
import { promisify } from "node:util";
import { chromium } from "playwright-core";

export const root = resolve(import.meta.dirname ?? new URL(".", import.meta.url).pathname, "../..");
export const run = promisify(execFile);

const extension = process.env.DRALO_EXTENSION ?? join(root, "build/release/dralo.so");
const givenShop = process.env.DRALO_TEST_SHOP;
const screenshots = join(root, "build/screenshots");

/** What a visitor may have: each page must work in all of them. */
export const visitors = {
  light: { viewport: { width: 1280, height: 800 }, colorScheme: "light" },
  dark: { viewport: { width: 1280, height: 800 }, colorScheme: "dark" },
  phone: { viewport: { width: 390, height: 780 }, colorScheme: "light", deviceScaleFactor: 2, hasTouch: true },
};

let browser;
let folder;

after(async () => {
  await browser?.close();
  if (folder) await rm(folder, { recursive: true });
});

async function theBrowser() {
  browser ??= await chromium.launch({
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

/** A copy of the shop that nobody else uses. The shop itself is the one given, or made once for each file of tests. */
async function freshShop() {
  if (!folder) {
    await run("php", ["-n", "-d", `extension=${extension}`, "-r", "exit(extension_loaded('dralo') ? 0 : 1);"]);
    folder = await mkdtemp(join(tmpdir(), "dralo-browser-"));
    if (!givenShop) await run(join(root, "site/data/make_shop.py"), [join(folder, "shop.db")]);
  }
  const copy = join(await mkdtemp(join(folder, "test-")), "shop.db");
  await copyFile(givenShop ?? join(folder, "shop.db"), copy);
  return copy;
}

export async function freePort() {
  const probe = createServer().listen(0, "127.0.0.1");
  await once(probe, "listening");
  const { port } = probe.address();
  probe.close();
  await once(probe, "close");
  return port;
}

async function answers(url) {
  try {
    return (await fetch(url)).ok;
  } catch {
    return false;
  }
}

/** Starts the example site. `log()` is what the server has said so far; `stop()` ends it. */
async function startServer() {
  const shop = await freshShop();
  const url = `http://127.0.0.1:${await freePort()}`;
  const site = join(root, "site");
  const server = spawn(
    "php",
    ["-n", "-d", `extension=${extension}`, "-S", url.slice("http://".length), "-t", site, join(site, "router.php")],
    { env: { ...process.env, DRALO_SHOP_DB: shop, LC_ALL: "C" }, stdio: ["ignore", "pipe", "pipe"] },
  );
  let said = "";
  server.stdout.on("data", (text) => (said += text));
  server.stderr.on("data", (text) => (said += text));
  const ended = once(server, "exit");
  const stop = async () => {
    if (server.exitCode === null) server.kill("SIGTERM");
    await ended;
  };

  const last = Date.now() + 15_000;
  while (!(await answers(url))) {
    if (server.exitCode !== null || Date.now() > last) {
      await stop();
      assert.fail(`the server does not answer; it said:\n${said}`);
    }
    await pause(50);
  }
  return { url, shop, stop, log: () => said };
}

/** What goes wrong in a page without a visitor's doing: errors of scripts, requests that fail. */
function watch(page) {
  const troubles = [];
  page.on("console", (message) => message.type() === "error" && troubles.push(`console: ${message.text()}`));
  page.on("pageerror", (error) => troubles.push(`script: ${error.message}`));
  page.on("requestfailed", (request) => troubles.push(`no answer: ${request.url()}`));
  page.on("response", (response) => response.status() >= 400 && troubles.push(`${response.status()}: ${response.url()}`));
  return troubles;
}

/**
 * A test with the example site and a page of the browser. `body` gets { page, url, shop, troubles }. When it fails, what
 * the server said is printed.
 */
export function siteTest(name, visitor, body) {
  test(name, async () => {
    const server = await startServer();
    const context = await (await theBrowser()).newContext({ ...visitor, baseURL: server.url });
    try {
      context.setDefaultTimeout(10_000);
      const page = await context.newPage();
      await body({ page, url: server.url, shop: server.shop, troubles: watch(page) });
    } catch (error) {
      console.error(`The server of "${name}" said:\n${server.log()}`);
      throw error;
    } finally {
      await context.close();
      await server.stop();
    }
  });
}

/** Keeps a picture of the whole page in build/screenshots, for people to look at. */
export async function keepScreenshot(page, name) {
  await mkdir(screenshots, { recursive: true });
  await page.screenshot({ path: join(screenshots, `${name}.png`), fullPage: true });
}
