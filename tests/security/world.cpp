#include "security/world.h"

#include <cstdint>

#include "dralo/error.h"
#include "hosts/cpp/environment.h"

namespace dralo::security {
namespace {

constexpr std::string_view kInside =
    "INSERT INTO Notes (ID, Owner, Title, Body, Price, Done, Due, Kind, Hidden) VALUES"
    " (1,7,'first','mine',1.5,TRUE,'2024-05-03',1,'h1'), (2,7,'second',NULL,20,NULL,NULL,2,NULL),"
    " (5,7,'a','<b>',NULL,FALSE,'1999-12-31',NULL,'h5'), (6,7,'','mine',0,TRUE,NULL,1,'h6')";
constexpr std::string_view kInsideCodes =
    "INSERT INTO Codes VALUES ('a1',7,'first'), ('b,2',7,'second'), ('%',7,NULL), ('',7,'empty')";

/// Keys of Codes are the same in both worlds: who adds one that there is learns that there is one.
const std::vector<std::string>& OutsideOf(Outside outside) {
  static const std::vector<std::string> kThis = {
      "INSERT INTO Notes (ID, Owner, Title, Body, Price, Done, Due, Kind, Hidden) VALUES"
      " (3,8,'third','theirs',30,TRUE,'2024-01-01',1,'x'), (4,8,'fourth','sesame',40,NULL,NULL,2,'y'),"
      " (9,NULL,'nobody','sesame',9,FALSE,NULL,NULL,NULL), (100,8,'last','sesame',1,TRUE,NULL,1,'z')",
      "INSERT INTO Codes VALUES ('z9',8,'sesame'), ('1',8,'one')", "INSERT INTO Secrets VALUES (1,'sesame')"};
  static const std::vector<std::string> kThat = {
      "INSERT INTO Notes (ID, Owner, Title, Body, Price, Done, Due, Kind, Hidden) VALUES"
      " (4,9,'New','x',2,FALSE,NULL,NULL,NULL), (7,8,'first','mine',1.5,TRUE,'2024-05-03',1,'h1'),"
      " (8,8,'a','open',NULL,NULL,'2001-01-01',2,'y'), (100,8,'other','open',-1,FALSE,NULL,2,NULL)",
      "INSERT INTO Codes VALUES ('z9',9,'open'), ('1',NULL,NULL)",
      "INSERT INTO Secrets VALUES (1,'open'), (2,'more')"};
  return outside == Outside::kThis ? kThis : kThat;
}

constexpr std::string_view kFlags[] = {"DisplayExcelIcon",
                                       "CountRecords",
                                       "EditDetectConflicts",
                                       "PersistentSQL",
                                       "DisplayRecordsPerPageSelect",
                                       "PersistPageFormRequest",
                                       "DisplayDebug"};
constexpr std::string_view kOptions[] = {"ADD UPDATE DELETE", "ADD UPDATE DELETE", "UPDATE DELETE", "ADD",
                                         ""};

}  // namespace

const std::vector<PageScript>& PageScripts() {
  constexpr std::string_view kColumns = "SELECT ID, Title, Body, Price, Done, Due, Kind, Hidden FROM Notes";
  static const std::string all(kColumns);
  static const std::string own = all + " WHERE Owner = 7";
  static const std::string bound = all + " WHERE Owner = ?";
  static const std::vector<PageScript> scripts = {
      {"Filtered", own, own},
      {"WideForm", own, all},
      {"ShownOwner", "SELECT ID, Owner, Title FROM Notes WHERE Owner = 7",
       "SELECT ID, Owner, Title FROM Notes WHERE Owner = 7 -- its own"},
      {"Parameter", bound, bound, "ID", "autoincrement", true},
      {"TextKeys", "SELECT Code, Title FROM Codes WHERE Owner = 7",
       "SELECT Code, Title FROM Codes WHERE Owner = 7;", "Code", ""},
  };
  return scripts;
}

World::World(const tests::Database& database, Outside outside)
    : outside_(outside),
      kind_(database),
      database_(database.make()),
      connection_(tests::Connect(database_->ConnectionString())) {}

void World::Run(const std::vector<std::string>& statements) const {
  for (const std::string& statement : statements) connection_->Execute(statement);
}

void World::Begin(const PageScript& script, record::Chance chance) {
  for (const char* table : {"Notes", "Codes", "Kinds", "Secrets"}) {
    connection_->Execute(std::string("DROP TABLE IF EXISTS ") + table);
  }
  Run({"CREATE TABLE Notes (ID " + kind_.identity.name +
           ", Owner INTEGER DEFAULT 7, Title VARCHAR(40), Body " + kind_.long_text.name +
           ", Price DECIMAL(10,2), Done " + kind_.boolean.name +
           ", Due DATE, Kind INTEGER, Hidden VARCHAR(40))",
       "CREATE TABLE Codes (Code VARCHAR(40) PRIMARY KEY, Owner INTEGER DEFAULT 7, Title VARCHAR(40))",
       "CREATE TABLE Kinds (ID INTEGER PRIMARY KEY, Word VARCHAR(20))",
       "CREATE TABLE Secrets (ID INTEGER PRIMARY KEY, Word VARCHAR(20))",
       "INSERT INTO Kinds VALUES (1,'plain'), (2,'<i>')", std::string(kInside), std::string(kInsideCodes)});
  Run(OutsideOf(outside_));
  if (kind_.name == "PostgreSql") connection_->Execute("ALTER TABLE Notes ALTER COLUMN ID RESTART WITH 101");
  script_ = &script;
  settings_.clear();
  settings_.emplace_back("EditOptions", std::string(chance.Pick(kOptions)));
  for (const std::string_view flag : kFlags) settings_.emplace_back(flag, chance.Percent(50));
  settings_.emplace_back("RecordsPerPage", static_cast<std::int64_t>(1 + chance.Below(4)));
  settings_.emplace_back("DisplayType", std::string(chance.Percent(80) ? "default" : "form"));
}

void World::SetUp(component::DbView& view) const {
  const auto set = [&](std::string_view name, std::string_view text) { view.Set(name, std::string(text)); };
  view.Set("Hardened", true);
  view.Set("ConnectionString", database_->ConnectionString());
  set("sql", script_->sql);
  set("EditSQL", script_->edit_sql);
  set("DeleteSQL", script_->keys == "ID" ? "DELETE FROM Notes" : "DELETE FROM Codes");
  set("EditPrimaryKeys", script_->keys);
  set("EditNewPKStatement", script_->new_key);
  set("EditFieldsReadOnly", "Price");
  set("FormFieldsHide", "Hidden");
  set("RecordsPerPageOptions", "1,3,10");
  if (script_->has_parameter) view.Set("SqlParameters", std::vector<Variant>{std::int64_t{7}});
  if (script_->keys == "ID") view.AddEditLookup("Kind", "Kinds", "ID", "Word", "ID", true);
  for (const auto& [name, value] : settings_) view.Set(name, value);
}

Reply World::Send(const HostileRequest& request) {
  static host::Environment environment("en-US");
  Page page("/notes", request.query, request.body);
  page.method = request.method;
  page.request_headers = request.headers;
  component::DbView view(environment);
  view.OnStartPage(page);
  SetUp(view);
  try {
    if (request.receives_posts) view.ReceivePost();
    view.WriteHtmlTable();
  } catch (const Page::Ended&) {
    // A redirect or a download.
  }
  Reply reply{page.Status(), page.ContentType(), page.Headers(), page.Body(),
              view.GetSettings().ErrorMessage};
  view.OnEndPage();
  return reply;
}

tests::Lines World::OutsideRecords() const {
  tests::Lines lines;
  for (const char* query : {"SELECT * FROM Notes WHERE Owner IS NULL OR Owner <> 7 ORDER BY ID",
                            "SELECT * FROM Codes WHERE Owner IS NULL OR Owner <> 7 ORDER BY Code",
                            "SELECT * FROM Kinds ORDER BY ID", "SELECT * FROM Secrets ORDER BY ID"}) {
    for (std::string& line : tests::Rows(connection_, query)) lines.push_back(std::move(line));
  }
  return lines;
}

tests::Lines World::InsideRecords() const {
  return tests::Rows(connection_, script_->keys == "ID"
                                      ? "SELECT * FROM Notes WHERE Owner = 7 ORDER BY ID"
                                      : "SELECT * FROM Codes WHERE Owner = 7 ORDER BY Code");
}

}  // namespace dralo::security
