#include "record/database_script.h"

#include <array>
#include <memory>

#include "record/attempt.h"
#include "record/field_texts.h"

namespace dralo::record {
namespace {

using Name = std::string_view;

constexpr std::array kScripts = {
    Name("SELECT count(*), 1.5, 'x', NULL, x'00FF' FROM Customers"),
    Name("UPDATE Customers SET City='Rome' WHERE ID<4"),
    Name("INSERT INTO Notes VALUES(2,'two','2001-01-01')"),
    Name("DELETE FROM Codes WHERE Flag IS NULL"),
    Name("Notes"),
    Name("CREATE TABLE Fresh(A INTEGER)"),
    Name("SELECT * FROM Days ORDER BY 1"),
    Name("SELECT 1; SELECT 2"),
    Name("BEGIN"),
    Name("SELEC"),
    Name(""),
};

void NoteRecord(Recordset& records, Journal& journal) {
  for (auto* field : records.Fields()) {
    journal.Add("field", field->Name());
    journal.Add("type", std::to_string(static_cast<int>(field->Type())) + " " +
                            std::to_string(field->Attributes()) + " " + std::to_string(field->DefinedSize()));
    Attempt(journal, "value", [&] {
      journal.AddValue("value", Own(field->Value()));
      journal.Add("size", std::to_string(field->ActualSize()));
    });
  }
}

void NoteRecords(Recordset& records, Journal& journal) {
  if (!records.IsOpen()) return journal.Add("records", "none");
  for (int rest = 5; rest > 0 && !records.Eof(); --rest, records.MoveNext()) NoteRecord(records, journal);
  journal.Add("at the end", records.Eof() ? "yes" : "no");
}

void Execute(Connection& connection, Chance& chance, Journal& journal) {
  const std::string_view sql = chance.Pick(kScripts);
  const int options = chance.Percent(80) ? -1 : static_cast<int>(chance.Below(3));
  journal.Add("execute", sql);
  Attempt(journal, "execute", [&] {
    if (chance.Percent(25)) return journal.Add("changed", std::to_string(connection.ChangeOneRecord(sql)));
    std::int64_t affected = -2;
    const auto records = connection.Execute(sql, &affected, options);
    journal.Add("affected", std::to_string(affected));
    NoteRecords(*records, journal);
  });
}

void ChangeRecord(const Stage& stage, const ShopTable& table, Chance& chance, Journal& journal) {
  const auto records = Create<Recordset>(stage.environment, "ADODB.Recordset");
  records->SetCursorLocation(chance.Percent(90) ? CursorLocation::kClient : CursorLocation::kServer);
  Attempt(journal, "open", [&] {
    records->Open(table.select, stage.shared->Connection(), CursorType::kKeyset, LockType::kOptimistic);
    if (chance.Percent(40)) {
      records->AddNew();
    } else {
      records->Move(static_cast<std::int64_t>(chance.Below(4)));
    }
    NoteRecord(*records, journal);
  });
  if (!records->IsOpen()) return;
  std::size_t position = 0;
  for (const ShopField& field : table.fields) {
    const std::size_t at = position++;
    if (at >= records->Fields().size() || chance.Percent(40)) continue;
    const std::string text = FieldText(field.kind, chance, 15);
    Attempt(journal, "assign", [&] { records->Fields()[at]->SetValue(text); });
  }
  Attempt(journal, "update", [&] {
    if (chance.Percent(85)) {
      records->Update();
    } else {
      records->CancelUpdate();
    }
    NoteRecord(*records, journal);
  });
  records->Close();
}

}  // namespace

void RunDatabaseScript(const Stage& stage, const ShopTable& table, Chance& chance, Journal& journal) {
  Connection& connection = *stage.shared->Connection();
  if (chance.Percent(60)) Execute(connection, chance, journal);
  if (chance.Percent(60)) ChangeRecord(stage, table, chance, journal);
  if (chance.Percent(20)) Attempt(journal, "create", [&] { stage.environment.CreateObject("ADODB.Nobody"); });
  if (chance.Percent(5)) Attempt(journal, "open again", [&] { connection.Open(stage.connection_string); });
  if (chance.Percent(5)) connection.Close();
}

}  // namespace dralo::record
