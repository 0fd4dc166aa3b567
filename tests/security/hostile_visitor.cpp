#include "security/hostile_visitor.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "support/browser_form.h"
#include "support/form_digests.h"
#include "support/html_elements.h"
#include "support/shown_view.h"
#include "text/ascii.h"

namespace dralo::security {
namespace {

using namespace std::string_view_literals;
using Fields = std::vector<platform::RequestField>;
using Headers = std::vector<std::pair<std::string, std::string>>;

constexpr std::size_t kMostDigests = 60;
constexpr std::size_t kMostKeys = 10;

// clang-format off
constexpr auto kKeys = std::to_array<std::string_view>({
    "1", "2", "5", "6", "101", "102", "103", "3", "4", "7", "8", "9", "100", "999", "0", "-1", "01", " 1",
    "1 ", "+1", "1.0", "1e0", "0x1", "\xD9\xA1", "1 OR 1=1", "1abc", "1,2", "NULL", "",
    "9223372036854775807", "9223372036854775808", "-9223372036854775809", "1\0"sv, "(SELECT 3)", "a1", "A1",
    "b,2", "b%2C2", "%", "%25", "z9", "Z9", "'", "1' OR '1'='1",
    "1) UNION SELECT ID,Word,Word,1,1,NULL,1,Word FROM Secrets --", "\xC0\xB1",
});
constexpr auto kTexts = std::to_array<std::string_view>({
    "", "new", "a", "first", "7", "8", "1", "2", "3", "on", "5/3/2024", "99/99/9999",
    "<script>f()</script>", "'; DROP TABLE Notes; --", "\xFF\xC0\xAF", "a\r\nSet-Cookie: b=c", "\0x"sv,
    "-1", "1e400", "NaN", "170141183460469231731687303715884105728", "\xE2\x80\xAE", "\xEF\xBC\x87",
    "(SELECT Word FROM Secrets)", "sesame", "theirs", "formOneRec", "True", "32767", "2147483647",
    "-2147483648",
});
constexpr auto kNames = std::to_array<std::string_view>({
    "FormDisplay", "PK", "EditPK", "FormEdit", "FormAdd", "FormView", "FormInsert", "FormUpdate",
    "FormDelete", "FormDeleteConfirmed", "CurrRecord", "maxrecords", "OrderByFields", "OrderByDesc",
    "CountRecords", "SQL", "BookMark", "ToExcel.x", "FIRST.x", "PREV.x", "NEXT.x", "LAST.x", "Done",
    "After", "Token", "_Form_ID", "_Form_Owner", "_Form_Title", "_Form_Body", "_Form_Price", "_Form_Done",
    "_Form_Due", "_Form_Kind", "_Form_Hidden", "_Form_Code", "_Was_ID", "_Was_Title", "_Was_Hidden",
    "_Was_Owner",
});
constexpr auto kOrders = std::to_array<std::string_view>({
    "1", "2", "8", "0", "-1", "ID", "Hidden", "(SELECT Word FROM Secrets)", "1 DESC",
    "CASE WHEN 1=1 THEN ID END",
});
// clang-format on

constexpr std::string_view kPrefix = "Morvu1";

Headers OwnHeaders() {
  return {{"Host", "notes.example"},
          {"Sec-Fetch-Site", "same-origin"},
          {"Content-Type", "application/x-www-form-urlencoded"}};
}

/// Every byte as "%XX".
std::string Encoded(const Fields& fields) {
  std::string text;
  const auto append = [&](std::string_view part) {
    for (const char c : part) {
      const auto byte = static_cast<unsigned char>(c);
      text.append({'%', "0123456789ABCDEF"[byte / 16], "0123456789ABCDEF"[byte % 16]});
    }
  };
  for (const auto& [name, value] : fields) {
    append(name);
    text += '=';
    append(value);
    text += '&';
  }
  return text;
}

std::string Key(std::string_view name) { return std::string(kPrefix).append(name); }

/// In any letter case, which is the database's choice.
bool Names(const platform::RequestField& field, std::string_view start) {
  return text::StartsWithAscii(field.name, Key(start));
}

/// What a press of each button of the page would post besides; with image buttons, where they were pressed.
Fields ButtonsOn(std::string_view page, bool with_images) {
  Fields buttons;
  for (const tests::Element& element : tests::Elements(page)) {
    const bool is_image = element["type"] == "image";
    if (element["type"] != "submit" && !(is_image && with_images)) continue;
    buttons.push_back({std::string(element["name"]) + (is_image ? ".x" : ""),
                       is_image ? "3" : std::string(element["value"])});
  }
  return buttons;
}

std::vector<std::string> LinksOn(std::string_view page) {
  std::vector<std::string> links;
  for (const tests::Element& element : tests::Elements(page)) {
    if (element["href"].find('?') != std::string_view::npos) links.emplace_back(element["href"]);
  }
  return links;
}

}  // namespace

std::string Described(const HostileRequest& request) {
  std::string text = request.method + " ?" + request.query + "\n" + request.body + "\n";
  for (const auto& [name, value] : request.headers) text.append(name).append(": ").append(value).append("\n");
  return text;
}

/// Half of them are keys that he has seen.
std::string HostileVisitor::AnyKey() {
  if (!keys_.empty() && chance_.Percent(50)) return chance_.Pick(keys_);
  return std::string(chance_.Pick(kKeys));
}

std::string HostileVisitor::AnyText() {
  if (chance_.Percent(3)) return std::string(5'000, '9');
  return std::string(chance_.Pick(kTexts));
}

std::string HostileVisitor::AnyName() {
  std::string name = Key(chance_.Pick(kNames));
  if (chance_.Percent(15)) {
    std::ranges::transform(name, name.begin(), [](char c) { return text::ToLower(c); });
  }
  return name;
}

void HostileVisitor::Learn(const std::string& page) {
  page_ = page;
  for (auto& [name, value] : tests::DigestsIn(page)) digests_.push_back({std::move(name), std::move(value)});
  if (digests_.size() > kMostDigests) digests_.erase(digests_.begin(), digests_.end() - kMostDigests);
  for (const std::string& link : LinksOn(page)) {
    for (platform::RequestField& field : tests::QueryOf(link)) {
      if (field.name == Key("PK")) keys_.push_back(std::move(field.value));
    }
  }
  if (keys_.size() > kMostKeys) keys_.erase(keys_.begin(), keys_.end() - kMostKeys);
}

/// As people do who mean well, so that records do change.
HostileRequest HostileVisitor::OpeningForm() {
  const Fields fields = {{Key("FormDisplay"), "formOneRec"}, {Key("PK"), AnyKey()}, {Key("FormEdit"), "1"}};
  return {.query = Encoded(fields), .headers = OwnHeaders()};
}

HostileRequest HostileVisitor::ChangingRecord() {
  Fields fields = tests::PostedByBrowser(page_);
  fields.push_back({Key(chance_.Percent(70) ? "FormUpdate" : "FormDelete"), "1"});
  for (platform::RequestField& field : fields) {
    if (Names(field, "_Form_Title")) field.value = "title " + std::to_string(chance_.Below(100));
  }
  return Posted(fields);
}

HostileRequest HostileVisitor::Opening() {
  if (chance_.Percent(30)) return OpeningForm();
  Fields fields;
  const std::size_t kind = chance_.Below(10);
  if (kind > 1) fields.push_back({Key("FormDisplay"), "formOneRec"});
  if (kind > 3) fields.push_back({Key("PK"), AnyKey()});
  if (kind > 4) fields.push_back({Key("FormEdit"), "1"});
  if (kind == 2 || kind == 3) fields.push_back({Key("FormAdd"), "1"});
  if (chance_.Percent(10)) fields.push_back({Key("OrderByFields"), std::string(chance_.Pick(kOrders))});
  return {.query = Encoded(fields), .headers = OwnHeaders()};
}

HostileRequest HostileVisitor::Following() {
  const std::vector<std::string> links = LinksOn(page_);
  if (links.empty()) return Opening();
  Fields fields = tests::QueryOf(chance_.Pick(links));
  if (chance_.Percent(30)) Bend(fields);
  return {.query = Encoded(fields), .headers = OwnHeaders()};
}

/// Types into most fields of a form, texts that suit it and others.
void HostileVisitor::Type(Fields& fields) {
  const std::size_t percent = chance_.Pick(std::array<std::size_t, 4>{0, 15, 30, 70});
  for (platform::RequestField& field : fields) {
    const bool is_typed = Names(field, "_Form_") && chance_.Percent(percent);
    if (is_typed) field.value = chance_.Percent(50) ? std::to_string(chance_.Below(3)) : AnyText();
  }
  if (chance_.Percent(10)) fields.push_back({Key("_Form_Done"), "on"});
}

HostileRequest HostileVisitor::Pressing() {
  if (!tests::DigestsIn(page_).empty() && chance_.Percent(50)) return ChangingRecord();
  const Fields buttons = ButtonsOn(page_, chance_.Percent(30));
  if (buttons.empty()) return chance_.Percent(50) ? Opening() : Following();
  const platform::RequestField button = chance_.Pick(buttons);
  Fields fields = tests::PostedByBrowser(page_);
  fields.push_back(button);
  Type(fields);
  if (chance_.Percent(35)) Bend(fields);
  return Posted(fields);
}

/// Whether there is a record with that title is told by a page that compares it with all.
HostileRequest HostileVisitor::AddingLikeOthers() {
  constexpr auto kTitles = std::to_array<std::string_view>({"third", "fourth", "other", "New", "last"});
  return Posted({{Key("FormInsert"), "1"},
                 {Key("FormUpdate"), "1"},
                 {Key("After"), chance_.Percent(70) ? "-1" : AnyKey()},
                 {Key("_Form_Title"), std::string(chance_.Pick(kTitles))}});
}

HostileRequest HostileVisitor::Guessing() {
  if (chance_.Percent(20)) return AddingLikeOthers();
  Fields fields;
  for (std::size_t rest = 1 + chance_.Below(8); rest > 0; --rest) {
    std::string name = AnyName();
    fields.push_back({std::move(name), chance_.Percent(50) ? AnyKey() : AnyText()});
  }
  if (chance_.Percent(50)) return {.query = Encoded(fields), .headers = OwnHeaders()};
  return Posted(fields);
}

HostileRequest HostileVisitor::Posted(const Fields& fields) {
  HostileRequest request{.method = "POST", .body = Encoded(fields), .headers = OwnHeaders()};
  if (chance_.Percent(5)) std::swap(request.query, request.body);
  request.receives_posts = chance_.Percent(50);
  return request;
}

void HostileVisitor::Bend(Fields& fields) {
  for (std::size_t rest = 1 + chance_.Below(3); rest > 0; --rest) BendOnce(fields);
}

void HostileVisitor::BendOnce(Fields& fields) {
  if (fields.empty()) return;
  platform::RequestField& field = fields[chance_.Below(fields.size())];
  switch (chance_.Below(8)) {
    case 0:
    case 1:
      for (platform::RequestField& one : fields) {
        if (one.name == Key("PK") || one.name == Key("EditPK")) one.value = AnyKey();
      }
      return;
    case 2:
      fields.erase(fields.begin() + (&field - fields.data()));
      return;
    case 3:
      fields.push_back({field.name, AnyText()});
      std::ranges::transform(fields.back().name, fields.back().name.begin(), text::ToUpper);
      return;
    case 4:
      field.value = chance_.Percent(50) ? AnyKey() : AnyText();
      return;
    case 5:
      for (platform::RequestField& one : fields) {
        if (Names(one, "_Was_") && !digests_.empty()) one.value = chance_.Pick(digests_).value;
      }
      return;
    default:
      std::string name = AnyName();
      fields.push_back({std::move(name), chance_.Percent(50) ? AnyKey() : AnyText()});
  }
}

void HostileVisitor::BendHeaders(HostileRequest& request) {
  Headers& headers = request.headers;
  switch (chance_.Below(8)) {
    case 0:
      headers = {
          {"Host", "notes.example"}, {"Origin", "https://evil.example"}, {"Sec-Fetch-Site", "cross-site"}};
      return;
    case 1:
      headers.erase(headers.begin() + 1);
      return;
    case 2:
      headers.clear();
      return;
    case 3:
      headers.emplace_back("Host", "evil.example");
      return;
    case 4:
      headers.back().second = chance_.Percent(50) ? "text/plain" : "multipart/form-data; boundary=x";
      return;
    case 5:
      request.method = chance_.Pick(std::array<std::string_view, 5>{"GET", "PUT", "HEAD", "post", ""});
      return;
    default:
      (chance_.Percent(50) ? request.query : request.body) += "&%=%zz&\xFF\x00=&" + AnyText();
  }
}

HostileRequest HostileVisitor::Next() {
  const std::size_t kind = chance_.Below(100);
  HostileRequest request = kind < 20   ? Opening()
                           : kind < 30 ? Following()
                           : kind < 90 ? Pressing()
                                       : Guessing();
  if (chance_.Percent(10)) BendHeaders(request);
  return request;
}

}  // namespace dralo::security
