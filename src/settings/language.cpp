#include "settings/language.h"

namespace dralo::settings {
namespace {

LanguageTables English() {
  return {{"Next", "Next", "Previous", "Previous", "Record", "Records", "List", "of", "First", "Last",
           "Records per Page", "Page"},
          {"Edit", "Save", "Close", "Add", "Delete"},
          {"[New record saved ok]", "[Record saved ok]", "[Record deleted]",
           "Record WAS NOT SAVED. Fill out all required fields."},
          {"Record WAS NOT SAVED. See the messages beside the fields.",
           "Changed meanwhile to:",
           "Record WAS NOT DELETED, for it was changed meanwhile. Delete it as it is now?",
           "Such a record was added already. Save once more to add another one.",
           "Fill in this field.",
           "This is not a number.",
           "This is not a valid date.",
           "This must be {} or more.",
           "This must be {} or less.",
           "This must have {} characters or more.",
           "This must have {} characters or less.",
           "This has not the form that is asked for.",
           "This is not an e-mail address.",
           "This is not a web address.",
           "This must be {} or later.",
           "This must be {} or earlier.",
           "Record WAS NOT DELETED. See the messages beside the fields.",
           "This is not one of the choices.",
           "Nothing was changed, for the connection to the database was lost. Try again.",
           ("The connection to the database was lost, so it is not known whether the change was made. Look "
            "before you try again.")}};
}

/// Buttons and outcomes stay English; pages that want others set their own lists.
LanguageTables German() {
  LanguageTables tables = English();
  tables.navigation = {
      "Nächster", "Nächste", "Vorheriger",           "Vorherige", "Datensatz", "Datensätze", "Liste", "von",
      "Erste",    "Letzter", "Datensätze pro Seite", "Seite"};
  tables.refusals = {
      "Der Datensatz wurde NICHT GESPEICHERT. Siehe die Hinweise neben den Feldern.",
      "Inzwischen geändert in:",
      "Der Datensatz wurde NICHT GELÖSCHT, denn er wurde inzwischen geändert. So löschen?",
      "Ein solcher Datensatz wurde schon angelegt. Nochmals speichern legt einen weiteren an.",
      "Bitte ausfüllen.",
      "Das ist keine Zahl.",
      "Das ist kein gültiges Datum.",
      "Mindestens {}.",
      "Höchstens {}.",
      "Mindestens {} Zeichen.",
      "Höchstens {} Zeichen.",
      "Das hat nicht die verlangte Form.",
      "Das ist keine E-Mail-Adresse.",
      "Das ist keine Web-Adresse.",
      "Nicht vor {}.",
      "Nicht nach {}.",
      "Der Datensatz wurde NICHT GELÖSCHT. Siehe die Hinweise neben den Feldern.",
      "Das steht nicht zur Wahl.",
      ("Es wurde nichts geändert, denn die Verbindung zur Datenbank ging verloren. Bitte nochmals "
       "versuchen."),
      ("Die Verbindung zur Datenbank ging verloren. Ob die Änderung erfolgt ist, ist nicht bekannt: "
       "bitte nachsehen, bevor Sie es nochmals versuchen.")};
  return tables;
}

LanguageTables Norwegian() {
  return {
      {"Neste", "Neste", "Forrige", "Forrige", "post", "poster", "Liste", "av", "Første", "Siste",
       "Poster per side", "side"},
      {"Rediger", "Lagre", "Lukk", "Ny", "Slett"},
      {"[Ny datapost lagret]", "[Dataposten ble lagret]", "[Dataposten ble slettet]",
       "Dataposten ble IKKE LAGRET. Fyll ut påkrevde verdier."},
      {"Dataposten ble IKKE LAGRET. Se meldingene ved feltene.",
       "I mellomtiden endret til:",
       "Dataposten ble IKKE SLETTET, for den er endret i mellomtiden. Slette den slik den er nå?",
       "En slik datapost er allerede lagt til. Lagre en gang til for å legge til en ny.",
       "Fyll ut dette feltet.",
       "Dette er ikke et tall.",
       "Dette er ikke en gyldig dato.",
       "Må være {} eller mer.",
       "Må være {} eller mindre.",
       "Må ha {} tegn eller flere.",
       "Må ha {} tegn eller færre.",
       "Dette har ikke den ønskede formen.",
       "Dette er ikke en e-postadresse.",
       "Dette er ikke en nettadresse.",
       "Må være {} eller senere.",
       "Må være {} eller tidligere.",
       "Dataposten ble IKKE SLETTET. Se meldingene ved feltene.",
       "Dette er ikke et av valgene.",
       "Ingenting ble endret, for forbindelsen til databasen ble brutt. Prøv en gang til.",
       ("Forbindelsen til databasen ble brutt, så det er ikke kjent om endringen ble gjort. Se etter før du "
        "prøver en gang til.")}};
}

}  // namespace

std::shared_ptr<const LanguageTables> BuiltInTables(std::string_view code) {
  static const auto english = std::make_shared<const LanguageTables>(English());
  static const auto german = std::make_shared<const LanguageTables>(German());
  static const auto norwegian = std::make_shared<const LanguageTables>(Norwegian());
  if (code == "ENG") return english;
  if (code == "GER") return german;
  if (code == "NOR") return norwegian;
  return nullptr;
}

}  // namespace dralo::settings
