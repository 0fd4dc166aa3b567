#include "settings/language.h"

namespace dralo::settings {
namespace {

LanguageTables English() {
  return {{"Next", "Next", "Previous", "Previous", "Record", "Records", "List", "of", "First", "Last",
           "Records per Page", "Page"},
          {"Edit", "Save", "Close", "Add", "Delete"},
          {"[New record saved ok]", "[Record saved ok]", "[Record deleted]",
           "Record WAS NOT SAVED. Fill out all required fields."}};
}

/// Keeps the English buttons and messages; pages that want others set their own lists.
LanguageTables German() {
  LanguageTables tables = English();
  tables.navigation = {
      "Nächster", "Nächste", "Vorheriger",           "Vorherige", "Datensatz", "Datensätze", "Liste", "von",
      "Erste",    "Letzter", "Datensätze pro Seite", "Seite"};
  return tables;
}

LanguageTables Norwegian() {
  return {{"Neste", "Neste", "Forrige", "Forrige", "post", "poster", "Liste", "av", "Første", "Siste",
           "Poster per side", "side"},
          {"Rediger", "Lagre", "Lukk", "Ny", "Slett"},
          {"[Ny datapost lagret]", "[Dataposten ble lagret]", "[Dataposten ble slettet]",
           "Dataposten ble IKKE LAGRET. Fyll ut påkrevde verdier."}};
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
