#pragma once

#include <string>
#include <string_view>

#include "support/contains.h"
#include "support/view_page.h"

namespace dralo::tests {

/// A page that shows somebody's notes beside other people's, in the mode that attacks are tried against:
/// every one must succeed on the plain page, or its test proves nothing, and fail on the hardened one.
struct NotesPage : ViewPage {
  explicit NotesPage(bool is_hardened)
      : ViewPage(
            "CREATE TABLE Notes(ID INTEGER PRIMARY KEY, Title VARCHAR(200), Body TEXT, Price INTEGER,"
            "                   Link VARCHAR(200), Owner INTEGER);"
            "INSERT INTO Notes VALUES(1, 'One', 'First', 10, '/1', 7), (2, 'Two', 'Second', 20, '/2', 7),"
            "                        (3, 'Three', 'Third', 30, '/3', 8), (4, 'Four', 'Fourth', 40, '/4', 8);"
            "CREATE TABLE Secrets(ID INTEGER PRIMARY KEY, Word VARCHAR(50));"
            "INSERT INTO Secrets VALUES(1, 'hush')") {
    constexpr const char* kOwn = "SELECT ID, Title, Body, Price, Link FROM Notes WHERE Owner = 7";
    Set({{"Hardened", is_hardened},
         {"sql", kOwn},
         {"FormSQL", kOwn},
         {"EditSQL", kOwn},
         {"EditPrimaryKeys", "ID"},
         {"EditOptions", "UPDATE"}});
  }

  /// Stores a text in a column of note 1.
  void Store(std::string_view column, std::string_view text) {
    std::string statement = "UPDATE Notes SET " + std::string(column) + " = '";
    for (const char c : text) statement.append(c == '\'' ? 2 : 1, c);
    database.Run(statement + "' WHERE ID = 1");
  }

  /// Asks for the one-record view of note 1, or for its form.
  void AskForRecord(std::string_view key = {}) {
    Ask({{"FormDisplay", "formOneRec"}, {"PK", "1"}});
    if (!key.empty()) Ask(key, "1");
  }
};

}  // namespace dralo::tests
