// A form that is opened and saved without a change leaves every byte of the record as it was.

import assert from "node:assert/strict";
import { field, message, stored, text } from "./form.mjs";
import { run, servedTest, withAndWithoutScripts } from "./site.mjs";
import { press } from "./view.mjs";

const table = `CREATE TABLE Shelves (Code VARCHAR(4) NOT NULL PRIMARY KEY, Name VARCHAR(20));
  INSERT INTO Shelves VALUES ('a', 'Lower "a"'), ('A', 'Upper A'), ('&amp;', 'Ampersand');
  CREATE TABLE Everything (
    ID INTEGER PRIMARY KEY, Whole INTEGER, Big BIGINT, Small SMALLINT, Real REAL, Amount DECIMAL(30,10), Price MONEY,
    Flag BOOLEAN, Day DATE, At DATETIME, Clock TIME, Words VARCHAR(200), Shelf VARCHAR(4), Memo TEXT, Code UUID, Raw BLOB);`;

/** SQL for a value: texts are written as they are, { sql } is an expression. */
const literal = (value) =>
  value === null || value === undefined
    ? "NULL"
    : (value.sql ?? (typeof value === "string" ? `'${value.replaceAll("'", "''")}'` : String(value)));

const insert = (record) =>
  `INSERT INTO Everything (${Object.keys(record).join(", ")}) VALUES (${Object.values(record).map(literal).join(", ")});`;

const megabyte = "Ten tea pots, äöü 🍵 & <b>\r\n".repeat(40_000).slice(0, 1_000_000);

/** What each column holds in one record after the other; where a list has ended the column is null. */
const values = {
  Whole: [2147483647, -2147483648, 0],
  Big: ["9223372036854775807", "-9223372036854775808", "9007199254740993", 0],
  Small: [32767, -32768, 0],
  Real: [0.1, -1e-7, { sql: "0.1 + 0.2" }, { sql: "3.0" }, 1.7976931348623157e308, { sql: "5e-324" }, 1e21],
  Amount: [{ sql: "CAST('12345678901234567890.1230000000' AS TEXT)" }, "0.00", "1.50", 3, -0.5, "1e3", "-.5", "007"],
  Price: [0.95, 1000000, { sql: "1.0 / 3" }, { sql: "100.0" }, 0],
  // No Null: a box that is not ticked stores False.
  Flag: [1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0],
  Day: ["2024-02-29", "0099-01-01", "9999-12-31", { sql: "1588748889" }, "1899-12-30"],
  At: ["2023-12-31 23:59:59", "2020-01-01 00:00:00", "2020-05-06 07:08:09.125", "2020-05-06T07:08:09", "1970-01-01"],
  Clock: ["07:05:09", "00:00:00", "23:59:59.5"],
  Words: [
    "",
    "   ",
    "  in the middle  ",
    "first\nsecond\r\nthird",
    "a\tb",
    `&amp; &lt;b> &copy=1 &copy; &#65; </td> "quotes" 'single' &quot; &`,
    `"><script>`,
    "Größe Łódź Ærø 見出し שלום 🍵👩‍👩‍👧 e\u0301",
    "a\u0002b",
    { sql: "CAST(x'80' AS TEXT)" },
    "\n",
  ],
  Shelf: ["", "a", "A", "&amp;"],
  Memo: [
    "",
    "  \t ",
    " a \t",
    "\n\nthird line",
    "\r\n\r\nthird line\r\n",
    "a\nb\r\nc\rd\n\r\n\r\r\n\n",
    "\n",
    "\ta\t\tb\t",
    `&amp; &lt;b> &copy=1 &copy; &#65; &#x41; &notit; </textarea><p>"quotes" 'single' <!-- --> ]]> &quot; &`,
    "</TEXTAREA >x",
    "\u00a0\u200b\u200f\u2028\u2029\ufeff\u0085𝄞",
    "a\u0001b\u001bc\u000bd\u000ce\u007f",
    { sql: "CAST(x'61FF62C328' AS TEXT)" },
    megabyte,
  ],
  Code: ["6f9619ff-8b86-d011-b42d-00c04fc964ff"],
  Raw: [{ sql: "x'00FF10'" }, { sql: "x''" }],
};

const count = Math.max(...Object.values(values).map((list) => list.length));
const records = Array.from({ length: count }, (_, at) =>
  Object.fromEntries(Object.entries(values).map(([name, list]) => [name, list[at]])),
);
const all = [table, ...records.map((record) => insert(record))].join("\n");

const formOf = (id, fields) =>
  `/everything.php?${new URLSearchParams({ Morvu1FormDisplay: "formOneRec", Morvu1PK: id, Morvu1FormEdit: 1, ...fields })}`;

/**
 * Opens the form of every record, does `change` to it, saves. Returns the records of which something other than `expected`
 * became: what the page said, and the columns that differ.
 */
async function saveAll(page, database, fields, change, ...expected) {
  const surprises = {};
  for (let id = 1; id <= count; id++) {
    const where = `ID = ${id}`;
    const [before] = await stored(database, "Everything", where);
    await page.goto(formOf(id, fields));
    await change();
    await press(page, "Save");
    const [after] = await stored(database, "Everything", where);
    const columns = Object.keys(before).filter((column) => before[column] !== after[column]);
    const became = [await message(page), ...columns.map((column) => `${column} was ${before[column].slice(0, 80)}, is ${after[column].slice(0, 80)}`)];
    if (became.join() !== expected.join()) surprises[id] = became;
  }
  return surprises;
}

const { "with scripts": withScripts, "without scripts": withoutScripts } = withAndWithoutScripts;

for (const [what, visitor, fields] of [
  ["with scripts", withScripts, {}],
  ["without scripts", withoutScripts, {}],
  ["all fields read-only", withScripts, { ReadOnly: "*" }],
  ["without classes", withScripts, { Plain: 1 }],
]) {
  servedTest(`Saving an unchanged form changes nothing (${what})`, visitor, all, async ({ page, database, troubles }) => {
    assert.deepEqual(await saveAll(page, database, fields, () => {}, "[Record saved ok]"), {});
    assert.deepEqual(troubles, []);
  });
}

servedTest("A changed field is the only one that differs afterwards", withScripts, all, async ({ page, database }) => {
  await run("sqlite3", [database, "UPDATE Everything SET Whole = 1"]);
  const change = () => field(page, "Whole").fill("4711");
  const changed = "Whole was integer:1, is integer:4711";

  assert.deepEqual(await saveAll(page, database, {}, change, "[Record saved ok]", changed), {});
});

const one = [table, insert({ ID: 1, Memo: "was", Words: "was", Flag: 1, Shelf: "a" })].join("\n");

servedTest("What is typed is stored byte for byte", withScripts, one, async ({ page, database }) => {
  const typed = `\n\tÄ "b" 'c' &amp; <d> </textarea> 🍵\\ %s #Words# `;
  await page.goto(formOf(1));
  await field(page, "Memo").fill(typed);
  await field(page, "Words").fill(typed.trim());
  await field(page, "Big").fill("-9007199254740993");
  await field(page, "Amount").fill("1234567,5");
  await field(page, "Flag").uncheck();
  await field(page, "Shelf").selectOption("A");
  await press(page, "Save");

  const [row] = await stored(database, "Everything");
  assert.equal(row.Memo, text(typed.replaceAll("\n", "\r\n")));
  assert.equal(row.Words, text(typed.trim()));
  assert.equal(row.Big, "integer:-9007199254740993");
  assert.equal(row.Amount, "real:1234567.5");
  assert.equal(row.Flag, "integer:0");
  assert.equal(row.Shelf, text("A"));
});

const unlisted = [table, insert({ ID: 1, Shelf: "zz", Words: "was" })].join("\n");

servedTest("A value that is none of the choices gives way to the empty choice that the form shows", withScripts, unlisted, async ({
  page,
  database,
}) => {
  await page.goto(formOf(1));
  await field(page, "Words").fill("is");
  await press(page, "Save");

  const [row] = await stored(database, "Everything");
  assert.deepEqual([row.Words, row.Shelf], [text("is"), "null:NULL"]);
});
