#include <algorithm>
#include <cstdint>
#include <exception>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "component/db_view.h"
#include "component/property.h"
#include "fuzz/fuzz_input.h"
#include "hosts/cpp/environment.h"
#include "support/fake_page.h"
#include "support/temporary_database.h"
#include "text/ascii.h"
#include "text/decimal.h"

namespace dralo::fuzz {
namespace {

using component::DbView;
using component::PropertyType;
using component::PropertyValue;

/// What stands in every text of the database, and a start of it that would be markup.
constexpr std::string_view kStored = "<d\"'>&#60;d";
constexpr std::string_view kMarkup[] = {"<d", "d\"'", "d&quot;'"};

const tests::TemporaryDatabase& Shop() {
  static const tests::TemporaryDatabase shop(
      "CREATE TABLE T(ID INTEGER PRIMARY KEY, Name VARCHAR(40), Memo MEMO, Price DECIMAL(8,2), Day DATETIME,"
      " Active BOOLEAN, Code VARCHAR(40), Photo BLOB);"
      "INSERT INTO T VALUES(1,'<d\"''>&#60;d','a <d\"''>&#60;d',1.5,'2024-05-03',1,'<d\"''>&#60;d',x'00'),"
      "(2,'=<d\"''>&#60;d',NULL,NULL,NULL,NULL,'+1',NULL),(3,'<d','<d',-7,'2024-05-03 "
      "14:07:09',0,'C',x'3C64')");
  return shop;
}

/// A file with the same content for each input: what a page has changed is undone.
void Restore() {
  static const std::string backup = Shop().Path() + ".backup";
  static const bool is_made =
      (Shop().Run("ATTACH '" + backup + "' AS b; CREATE TABLE b.T AS SELECT * FROM T"), true);
  static_cast<void>(is_made);
  Shop().Run("ATTACH '" + backup + "' AS b; DELETE FROM T; INSERT INTO T SELECT * FROM b.T");
}

PropertyValue ValueFor(PropertyType type, std::string_view text) {
  switch (type) {
    case PropertyType::kBoolean:
      return text == "1";
    case PropertyType::kInteger:
    case PropertyType::kLong:
      return text::ParseNumber<std::int64_t>(text).value_or(0);
    default:
      return std::string(text);
  }
}

/// Statements could attach and write any file of the machine.
bool IsStatement(const component::Property<DbView>& property) {
  constexpr std::string_view kStatements[] = {"ConnectionString", "sql",       "FormSQL",
                                              "EditSQL",          "DeleteSQL", "EditNewPKStatement"};
  return std::ranges::find(kStatements, property.name) != std::end(kStatements);
}

/// The property "Name", or "Name 3" of a column.
void Set(DbView& view, std::string_view name, std::string_view text) {
  const std::size_t blank = std::min(name.find(' '), name.size());
  const auto column = text::ParseNumber<std::int16_t>(name.substr(std::min(blank + 1, name.size())));
  for (const component::IndexedProperty& property : component::DbViewIndexedProperties()) {
    const bool is_it = column && text::EqualAscii(property.name, name.substr(0, blank));
    if (is_it && property.set != nullptr) property.set(view, *column, text);
  }
  const auto* property = component::FindDbViewProperty(name);
  if (property != nullptr && !IsStatement(*property)) view.Set(name, ValueFor(property->type, text));
}

/// A line "Name=value" is a property, "?key=value" and "!key=value" are asked for and posted, "+" adds a
/// lookup.
void TakeLine(DbView& view, tests::FakePage& page, std::string_view line) {
  const std::size_t sign = std::min(line.find('='), line.size());
  const std::string_view name = line.substr(0, sign);
  const std::string value(line.substr(std::min(sign + 1, line.size())));
  if (text::ContainsAscii(name, "SQL")) return;
  if (name.starts_with('?')) return page.query.push_back({"Morvu1" + std::string(name.substr(1)), value});
  if (name.starts_with('!')) return page.form.push_back({"Morvu1" + std::string(name.substr(1)), value});
  if (name.starts_with('+')) return view.AddEditLookup(name.substr(1), "T", "ID", "Name", value, true);
  try {
    Set(view, name, value);
  } catch (const std::exception&) {
    return;  // The value does not suit it.
  }
}

/// What of a template makes one of the markups with a value before or behind it.
constexpr std::string_view kHalves[] = {"'<", "\"'"};

bool HasAny(std::string_view text, std::span<const std::string_view> pieces) {
  return std::ranges::any_of(pieces, [&](std::string_view piece) { return text.find(piece) != text.npos; });
}

void SetUp(DbView& view) {
  view.Set("ConnectionString", Shop().ConnectionString());
  for (const auto& [name, text] : {std::pair{"sql", "SELECT * FROM T"},
                                   {"EditPrimaryKeys", "ID"},
                                   {"EditOptions", "ADD UPDATE DELETE"},
                                   {"EditNewPKStatement", "autoincrement"},
                                   {"DeleteSQL", "DELETE FROM T"}}) {
    view.Set(name, std::string(text));
  }
}

}  // namespace

/// A digit for a plain or a hardened page, then parts as TakeLine() reads them.
void Try(std::string_view input) {
  Restore();
  Parts parts(input);
  const bool is_hardened = parts.Choose(2) == 1;
  static host::Environment environment("en-US");
  tests::FakePage page;
  DbView view(environment);
  view.OnStartPage(page);
  SetUp(view);
  bool has_html = false;
  while (!parts.IsAtEnd()) {
    const std::string_view line = parts.Next();
    has_html = has_html || HasAny(line, kMarkup) || HasAny(line, kHalves) ||
               text::StartsWithAscii(line, "GridColsHtml");
    TakeLine(view, page, line);
  }
  view.Set("Hardened", is_hardened);
  try {
    view.WriteHtmlTable();
  } catch (const std::exception&) {
    // A page learns of errors in what it sets.
  }
  if (is_hardened && !has_html) {
    Require(!HasAny(page.body, kMarkup), "no stored value is markup on a hardened page");
    Require(!HasAny(view.GetSettings().ErrorMessage, kMarkup), "no stored value is markup in a message");
  }
  view.OnEndPage();
}

}  // namespace dralo::fuzz
