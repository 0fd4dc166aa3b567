// What buttons and messages say in each of the three languages.

import assert from "node:assert/strict";
import { buttons, field, message, openRecord } from "./form.mjs";
import { editTest, visitors } from "./site.mjs";
import { press } from "./view.mjs";

const languages = [
  {
    name: "English",
    code: "ENG",
    buttons: ["Edit", "Save", "Close", "Add", "Delete"],
    added: "[New record saved ok]",
    saved: "[Record saved ok]",
    deleted: "[Record deleted]",
    required: "Record WAS NOT SAVED. See the messages beside the fields.",
    question: "Delete this reminder?",
  },
  {
    name: "German, in words of the page's own",
    code: "GER",
    buttons: ["Bearbeiten", "Speichern", "Schließen", "Neu", "Löschen"],
    added: "[Neuer Datensatz gespeichert]",
    saved: "[Datensatz gespeichert]",
    deleted: "[Datensatz gelöscht]",
    required: "Der Datensatz wurde NICHT GESPEICHERT. Siehe die Hinweise neben den Feldern.",
    question: "Diese Aufgabe löschen?",
  },
  {
    name: "Norwegian",
    code: "NOR",
    buttons: ["Rediger", "Lagre", "Lukk", "Ny", "Slett"],
    added: "[Ny datapost lagret]",
    saved: "[Dataposten ble lagret]",
    deleted: "[Dataposten ble slettet]",
    required: "Dataposten ble IKKE LAGRET. Se meldingene ved feltene.",
    question: "Slette denne oppgaven?",
  },
];

for (const language of languages) {
  const [edit, save, close, add, remove] = language.buttons;

  editTest(`Saving, failing and deleting speak ${language.name}`, visitors.light, async ({ page, troubles }) => {
    const asked = [];
    page.on("dialog", (dialog) => {
      asked.push(dialog.message());
      return dialog.accept();
    });
    await page.goto(`/messages.php?Language=${language.code}`);
    await openRecord(page, 2);
    assert.deepEqual(await buttons(page), [edit, add]);

    await press(page, edit);
    assert.deepEqual(await buttons(page), [save, close, add, remove]);
    await field(page, "Task").fill("");
    await press(page, save);
    assert.equal(await message(page), language.required);
    await field(page, "Task").fill("Taste");
    await press(page, save);
    assert.equal(await message(page), language.saved);

    await press(page, add);
    assert.deepEqual(await buttons(page), [save, close]);
    await field(page, "Task").fill("Rest");
    await field(page, "Employee").selectOption("");
    await press(page, save);
    assert.equal(await message(page), language.added);

    await press(page, edit);
    await press(page, remove);
    assert.deepEqual(asked, [language.question]);
    assert.equal(await message(page), language.deleted);
    assert.deepEqual(troubles, []);
  });
}
