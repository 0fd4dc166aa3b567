// Editing a record: the form, what is refused, what is saved.

import assert from "node:assert/strict";
import { buttons, changes, field, kindOfView, message, notes, openRecord, shownRecord, stored, text, toList, unchanged } from "./form.mjs";
import { editTest, visitors, withAndWithoutScripts } from "./site.mjs";
import { column, counter, press, viewOf } from "./view.mjs";

/** Opens the form of the second customer by way of its view. */
async function editSecond(page) {
  await page.goto("/customers.php");
  await openRecord(page, 2);
  await press(page, "Edit");
}

const refused = "Record WAS NOT SAVED. See the messages beside the fields.";

for (const [kind, visitor] of Object.entries(withAndWithoutScripts)) {
  editTest(`What fails stays in the form until it is right, and only then is saved (${kind})`, visitor, async ({
    page,
    shop,
    troubles,
  }) => {
    const before = await stored(shop, "Customers");
    await editSecond(page);
    assert.deepEqual(await buttons(page), ["Save", "Close", "Add", "Delete"]);
    assert.equal(await field(page, "Company").inputValue(), "The Turf Fire Bookshop");

    await field(page, "Company").fill("Tee & Töpfe");
    await field(page, "City").fill("");
    await field(page, "Newsletter").check();
    await press(page, "Save");
    assert.equal(await message(page), refused);
    assert.deepEqual(await notes(page), ["Fill in this field."]);
    assert.equal(await field(page, "Company").inputValue(), "Tee & Töpfe");
    assert.equal(await field(page, "City").inputValue(), "");
    assert.equal(await field(page, "Newsletter").isChecked(), true);
    assert.deepEqual(await changes(before, shop, "Customers"), unchanged);

    await field(page, "City").fill("Cork");
    await field(page, "CreditLimit").fill("plenty");
    await press(page, "Save");
    assert.deepEqual(await notes(page), ["This is not a number."]);
    await field(page, "CreditLimit").fill("300,50");
    await field(page, "Since").fill("some day");
    await press(page, "Save");
    assert.equal(await message(page), refused);
    assert.deepEqual(await notes(page), ["This is not a valid date."]);
    assert.equal(await field(page, "CreditLimit").inputValue(), "300,50");
    assert.deepEqual(await changes(before, shop, "Customers"), unchanged);

    await field(page, "Since").fill("2/29/2016");
    await field(page, "Country").selectOption({ label: "Norway" });
    await press(page, "Save");
    assert.equal(await message(page), "[Record saved ok]");

    const second = before[1];
    const saved = {
      ...second,
      Company: text("Tee & Töpfe"),
      City: text("Cork"),
      Country: text("NO"),
      CreditLimit: "real:300.5",
      Newsletter: "integer:1",
      Since: text("2016-02-29"),
    };
    assert.deepEqual(await changes(before, shop, "Customers"), { gone: [second], come: [saved] });
    assert.equal(await kindOfView(page), "view");
    const { Company, Country, Since } = await shownRecord(page);
    assert.deepEqual([Company, Country, Since], ["Tee & Töpfe", "Norway", "2/29/2016"]);
    assert.equal(await counter(page), "Record 2 of 400");

    await toList(page);
    assert.equal((await column(page, 2))[0], "Tee & Töpfe");
    assert.deepEqual(troubles, []);
  });

  editTest(`Close leaves the record as it is (${kind})`, visitor, async ({ page, shop }) => {
    const before = await stored(shop, "Customers");
    await editSecond(page);
    await field(page, "Company").fill("Somebody else");

    await press(page, "Close");

    assert.equal(await kindOfView(page), "view");
    assert.equal((await shownRecord(page)).Company, "The Turf Fire Bookshop");
    assert.equal(await counter(page), "Record 2 of 400");
    assert.deepEqual(await changes(before, shop, "Customers"), unchanged);
  });

  editTest(`After a failure Close shows the record as it is stored (${kind})`, visitor, async ({ page }) => {
    await editSecond(page);
    await field(page, "Company").fill("");
    await press(page, "Save");

    await press(page, "Close");

    assert.equal(await kindOfView(page), "view");
    assert.equal((await shownRecord(page)).Company, "The Turf Fire Bookshop");
    assert.equal(await message(page), "");
  });
}

editTest("A refusal of the database is told without its words, and the form keeps what was typed", visitors.light, async ({ page, shop }) => {
  const before = await stored(shop, "Customers");
  await editSecond(page);
  const letter = "All we ever wrote to each other. ".repeat(700);
  await field(page, "Notes").fill(letter);

  await press(page, "Save");

  const error = await page.locator(".example").innerText();
  assert.match(error, /Message 9: The record was not saved\./);
  assert.doesNotMatch(error, /20000 signs/);
  assert.equal(await kindOfView(page), "form");
  assert.equal(await field(page, "Notes").inputValue(), letter);
  assert.deepEqual(await changes(before, shop, "Customers"), unchanged);
});

editTest("Enter in a field saves", visitors.light, async ({ page, shop }) => {
  await editSecond(page);
  await field(page, "Contact").fill("Nuala Ní Dhomhnaill");

  await Promise.all([page.waitForEvent("load"), field(page, "Contact").press("Enter")]);

  assert.equal(await message(page), "[Record saved ok]");
  assert.equal((await stored(shop, "Customers", "ID = 2"))[0].Contact, text("Nuala Ní Dhomhnaill"));
});

editTest("Fields show what kind of value they take", visitors.light, async ({ page }) => {
  await editSecond(page);

  assert.equal(await field(page, "ID").first().isDisabled(), true);
  assert.equal(await field(page, "Company").getAttribute("maxlength"), "60");
  assert.equal(await field(page, "Newsletter").getAttribute("type"), "checkbox");
  assert.equal(await field(page, "Country").locator("option").count(), 27);
  assert.equal(await field(page, "Notes").evaluate((control) => control.tagName), "TEXTAREA");
  const required = await viewOf(page).locator(".DraloRequiredFieldLabel").allInnerTexts();
  assert.deepEqual(required, ["ID", "Company", "City", "Country", "Newsletter", "Since"]);
});

editTest("Emptied fields that may be empty become null", visitors.light, async ({ page, shop }) => {
  await editSecond(page);
  for (const name of ["Contact", "Email", "CreditLimit", "LastVisit", "Notes"]) await field(page, name).fill("");

  await press(page, "Save");

  const [row] = await stored(shop, "Customers", "ID = 2");
  const emptied = [row.Contact, row.Email, row.CreditLimit, row.LastVisit, row.Notes];
  assert.deepEqual(emptied, Array(5).fill("null:NULL"));
});

editTest("The form shows another record when the bar leads there", visitors.light, async ({ page, shop }) => {
  const before = await stored(shop, "Customers");
  await editSecond(page);
  await field(page, "Company").fill("Not saved");

  await press(page, "Next Record");

  assert.equal(await field(page, "ID").first().inputValue(), "3");
  assert.equal(await kindOfView(page), "form");
  assert.deepEqual(await changes(before, shop, "Customers"), unchanged);
});

editTest("Loading the page again after a save saves nothing again", visitors.light, async ({ page, shop }) => {
  await editSecond(page);
  await field(page, "Contact").fill("Once");
  await press(page, "Save");
  const saved = await stored(shop, "Customers");

  await page.reload();

  assert.equal(await message(page), "[Record saved ok]");
  assert.deepEqual(await changes(saved, shop, "Customers"), unchanged);
});

editTest("Markup that a visitor saves is text wherever it is shown", visitors.light, async ({ page, shop, troubles }) => {
  const markup = `</textarea><script>document.title = "taken"</script>"><img src=x onerror='document.title = "taken"'>`;
  await editSecond(page);
  await field(page, "Contact").fill(markup.slice(0, 60));
  await field(page, "Notes").fill(markup);
  await press(page, "Save");
  assert.equal((await stored(shop, "Customers", "ID = 2"))[0].Notes, text(markup));

  assert.equal((await shownRecord(page)).Notes, markup);
  await press(page, "Edit");
  assert.equal(await field(page, "Notes").inputValue(), markup);
  assert.equal(await field(page, "Contact").inputValue(), markup.slice(0, 60));
  await toList(page);
  assert.ok((await column(page, 3)).includes(markup.slice(0, 60)));
  assert.equal(await page.title(), "Add, edit, delete – Dralo");
  assert.deepEqual(troubles, []);
});
