#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "component/db_view.h"
#include "dralo/page.h"
#include "hosts/cpp/environment.h"
#include "support/form_digests.h"
#include "support/temporary_database.h"

namespace dralo::security {

using Headers = std::vector<std::pair<std::string, std::string>>;

/// What a browser adds to the posts of the page's own forms, and what it adds to those of another site.
inline Headers FromOwnPage() {
  return {{"Host", "notes.example"},
          {"Sec-Fetch-Site", "same-origin"},
          {"Content-Type", "application/x-www-form-urlencoded"}};
}
inline Headers FromEvilPage() {
  return {{"Host", "notes.example"},
          {"Origin", "https://evil.example"},
          {"Sec-Fetch-Site", "cross-site"},
          {"Content-Type", "application/x-www-form-urlencoded"}};
}

/// One request of a visitor, with query string and body as they are sent.
struct Visit {
  std::string method = "GET";
  std::string query = "";
  std::string body = "";
  Headers headers = FromOwnPage();
};

/// What the visitor gets, and what is kept from him.
struct Answer {
  int status = 200;
  Headers headers = {};
  std::string body = "";
  std::string message = "";  ///< ErrorMessage, which the page shows.
  std::string detail = "";   ///< ErrorDetail, which it does not.

  std::string Header(std::string_view name) const {
    for (const auto& [known, value] : headers) {
      if (known == name) return value;
    }
    return {};
  }
  bool Shows(std::string_view text) const { return (body + message).find(text) != std::string::npos; }
};

/// The notes of owner 7 on a page with forms, beside those of owner 8 and a table that is nobody's business.
class VisitedNotes {
 public:
  explicit VisitedNotes(bool is_hardened) : is_hardened_(is_hardened) {
    site_.log = [this](std::string_view line) { log_.emplace_back(line); };
  }

  /// What the page sets besides; called before each rendering.
  std::function<void(component::DbView& view)> script = [](component::DbView&) {};

  /// Calls ReceivePost() first, as pages do that let a change end with a redirect.
  bool receives_posts = false;
  platform::Site& Site() { return site_; }

  /// What is posted carries the digests of the record's form, which a hostile visitor knows as well.
  Answer Send(Visit visit) {
    visit.body += DigestsOf(visit);
    return Answered(visit);
  }

  Answer Answered(const Visit& visit) {
    host::Environment environment("en-US", site_);
    Page page("/notes", visit.query, visit.body);
    page.method = visit.method;
    page.request_headers = visit.headers;
    component::DbView view(environment);
    view.OnStartPage(page);
    SetUp(view);
    try {
      if (receives_posts) view.ReceivePost();
      view.WriteHtmlTable();
    } catch (const Page::Ended&) {
      // A redirect or a download.
    }
    Answer answer{page.Status(), page.Headers(), page.Body(), view.GetSettings().ErrorMessage,
                  view.GetSettings().ErrorDetail};
    view.OnEndPage();
    return answer;
  }

  /// All notes as "ID:Title:Price" in the order of their numbers.
  std::string Notes() const {
    return database_.Value(
        "SELECT group_concat(Note, ' ') FROM (SELECT ID || ':' || Title || ':' || Price AS Note"
        " FROM Notes ORDER BY ID)");
  }
  const std::vector<std::string>& Log() const { return log_; }

  static constexpr std::string_view kUnchanged = "1:One:10 2:Two:20 3:Three:30 4:Four:40";

 private:
  std::string DigestsOf(const Visit& visit) {
    constexpr std::string_view kKey = "Morvu1PK=";
    const std::size_t key = visit.body.find(kKey);
    if (!is_hardened_ || key == visit.body.npos) return {};
    const std::string address = "Morvu1FormDisplay=formOneRec&Morvu1FormEdit=1&" +
                                visit.body.substr(key, visit.body.find('&', key) - key);
    std::string fields;
    for (const auto& [name, value] : tests::DigestsIn(Answered({.query = address}).body)) {
      fields.append("&").append(name).append("=").append(value);
    }
    return fields;
  }

  void SetUp(component::DbView& view) const {
    constexpr const char* kNotes = "SELECT ID, Title, Body, Price, Link FROM Notes WHERE Owner = 7";
    const auto set = [&](std::string_view name, const char* text) { view.Set(name, std::string(text)); };
    view.Set("Hardened", is_hardened_);
    view.Set("ConnectionString", database_.ConnectionString());
    set("sql", kNotes);
    set("EditSQL", kNotes);
    set("DeleteSQL", "DELETE FROM Notes");
    set("EditPrimaryKeys", "ID");
    set("EditNewPKStatement", "autoincrement");
    set("EditOptions", "UPDATE DELETE ADD");
    set("EditFieldsReadOnly", "ID,Price");
    set("FormFieldsHide", "Link");
    script(view);
  }

  tests::TemporaryDatabase database_{
      "CREATE TABLE Notes(ID INTEGER PRIMARY KEY, Title VARCHAR(40), Body TEXT, Price INTEGER, Link TEXT,"
      " Owner INTEGER);"
      "INSERT INTO Notes VALUES(1,'One','a',10,'l',7),(2,'Two','b',20,'l',7),(3,'Three','c',30,'l',8),"
      "(4,'Four','d',40,'l',8);"
      "CREATE TABLE Secrets(ID INTEGER PRIMARY KEY, Word TEXT);"
      "INSERT INTO Secrets VALUES(1,'hunter2')"};
  bool is_hardened_;
  platform::Site site_;
  std::vector<std::string> log_;
};

}  // namespace dralo::security
