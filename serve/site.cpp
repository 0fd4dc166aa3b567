#include "site.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>

#include "assets.h"
#include "start_page.h"
#include "table_page.h"
#include "text.h"

namespace serve {
namespace {

/// Names of tables are much shorter.
constexpr std::size_t kLongestPath = 2000;

constexpr std::string_view kTablePath = "/table/";
constexpr std::string_view kAssetPath = "/assets/";

constexpr std::string_view kViewStart = "<div class=\"view\">\n";
constexpr std::string_view kViewEnd = "</div>";

void Log(std::string_view line) { std::cerr << "dralo-serve: " + std::string(line) + "\n"; }

std::string_view PathOf(const Request& request) {
  return std::string_view(request.target).substr(0, request.target.find('?'));
}

std::string_view QueryOf(const Request& request) {
  const std::size_t end = PathOf(request).size();
  return std::string_view(request.target).substr(std::min(end + 1, request.target.size()));
}

/// Reads the part after "/table/": a table, or a schema and a table.
std::optional<TableName> ReadTableName(std::string_view text) {
  const std::size_t slash = text.find('/');
  auto first = ReadPathSegment(text.substr(0, slash));
  if (slash == text.npos) return first ? std::optional(TableName{"", *first}) : std::nullopt;
  auto second = ReadPathSegment(text.substr(slash + 1));
  if (!first || !second || text.find('/', slash + 1) != text.npos) return std::nullopt;
  return TableName{*first, *second};
}

/// Buttons post this word, and links contain it. If the request is for no download after all, that is noticed
/// when the page is written.
bool AsksForDownload(const Request& request) {
  constexpr std::string_view kWord = "toexcel";
  return Lower(QueryOf(request)).find(kWord) != std::string::npos ||
         Lower(request.form).find(kWord) != std::string::npos;
}

std::unique_ptr<dralo::Page> PageFor(const Request& request) {
  auto page = std::make_unique<dralo::Page>(PathOf(request), QueryOf(request), request.form);
  page->method = request.method;
  page->request_headers = request.headers;
  return page;
}

/// What a page depends on besides the database. The view reads no other headers of a GET.
std::string AllThatIsRead(const Request& request) {
  std::string read = request.target;
  for (const auto& [name, value] : request.headers) {
    const std::string lower = Lower(name);
    if (lower == "host" || lower == "sec-fetch-site")
      read.append("\n").append(lower).append(":").append(value);
  }
  return read;
}

bool IsHtml(const dralo::Page& page) { return page.ContentType().starts_with("text/html"); }

Answer AssetAnswer(std::string_view name) {
  const Asset* const asset = FindAsset(name);
  if (asset == nullptr) return {404, "text/plain; charset=utf-8", {}, "There is no such file.\n"};
  return {200, std::string(asset->type), {{"Cache-Control", "max-age=300"}}, std::string(asset->data)};
}

/// Says nothing about the database, because it may be for somebody who must not know it.
Answer Refusal(int status, std::string text, Headers headers = {}) {
  return {status, "text/plain; charset=utf-8", std::move(headers), std::move(text) + "\n"};
}

}  // namespace

Site::Site(const Options& options)
    : options_(options),
      host_names_(HostNames(options)),
      environment_("", {.hardened = true, .hosts = host_names_, .log = Log}),
      schema_(environment_, options_),
      watch_(environment_, options_),
      users_(options.user_file.empty() ? nullptr : std::make_unique<Users>(options.user_file)) {
  RequireTables();
}

void Site::RequireTables() {
  const TableList tables = schema_.Tables();
  for (const std::string& wanted : options_.tables) {
    const auto is_it = [&](const Table& table) { return Label(table.name) == wanted; };
    if (std::ranges::any_of(*tables, is_it)) continue;
    throw std::runtime_error("there is no table or view " + wanted + "; write its name as the database does");
  }
}

Answer Site::Respond(const Request& request) {
  const std::string host = NameOfHost(request.Header("host"));
  if (std::ranges::find(host_names_, host) == host_names_.end())
    return Refusal(421, "This server does not answer under that name; dralo-serve --name NAME adds one.");
  if (users_ != nullptr && !users_->Knows(request.Header("authorization"))) {
    return Refusal(401, "Please log in.",
                   {{"WWW-Authenticate", "Basic realm=\"Database\", charset=\"UTF-8\""}});
  }
  try {
    return Route(request);
  } catch (const std::exception& error) {
    Log(error.what());
    schema_.Forget();
    // Without the list of tables: to ask for it would be to wait once more.
    auto none = std::make_shared<const std::vector<Table>>();
    return {.status = 503,
            .body = Message(FrameWith(std::move(none)), "The database cannot be read",
                            "The server's own messages tell why. Try again when it is there.")};
  }
}

Answer Site::Route(const Request& request) {
  const std::string_view path = PathOf(request);
  if (request.method != "GET" && request.method != "HEAD" && request.method != "POST")
    return Refusal(405, "This server knows GET, HEAD and POST.", {{"Allow", "GET, HEAD, POST"}});
  if (path.size() > kLongestPath) return Refusal(414, "The address is too long.");
  if (path.starts_with(kAssetPath)) return AssetAnswer(path.substr(kAssetPath.size()));
  if (path == "/") return Start();
  if (path.starts_with(kTablePath)) return ShowTable(request, path.substr(kTablePath.size()));
  return Failure(404, "There is no such page", "The address leads nowhere.");
}

Answer Site::Start() {
  const std::vector<CountedTable> counted = schema_.CountedTables();
  std::vector<Table> tables(counted.size());
  std::ranges::transform(counted, tables.begin(), &CountedTable::table);
  const auto list = std::make_shared<const std::vector<Table>>(std::move(tables));
  return {.body = WholePage(FrameWith(list), "Tables", {StartPage(counted)})};
}

Answer Site::ShowTable(const Request& request, std::string_view path) {
  const auto asked_at = Schema::Clock::now();
  const auto name = ReadTableName(path);
  // What is known about the table may be out of date: then a second look decides.
  for (const bool is_last : {false, true}) {
    std::string trouble;
    const TableList tables = schema_.Tables(asked_at);
    const auto plan = name ? PlanOf(*name, asked_at, trouble) : nullptr;
    if (!trouble.empty()) return Failure(500, Label(*name), trouble);
    if (plan == nullptr) break;
    Outcome outcome;
    Answer answer = AsksForDownload(request) ? Download(request, plan, outcome)
                                             : RenderOrRepeat(request, *plan, tables, outcome);
    if (!outcome.message.empty()) schema_.Forget();
    if (outcome.message.empty() || is_last || request.method == "POST") return answer;
  }
  return Failure(404, "There is no such table", "It may have been dropped or renamed.");
}

std::shared_ptr<const TablePlan> Site::PlanOf(const TableName& name, Schema::Time asked_at,
                                              std::string& trouble) {
  try {
    return schema_.Plan(name, asked_at);
  } catch (const dralo::Error& error) {
    Log(error.what());
    trouble = "This table or view cannot be read. The server's own messages tell why.";
    return nullptr;
  }
}

Answer Site::RenderOrRepeat(const Request& request, const TablePlan& plan, const TableList& tables,
                            Outcome& outcome) {
  const std::string asked = AllThatIsRead(request);
  const bool can_keep = plan.is_stored && !options_.can_edit && request.method == "GET";
  // Before the page is begun: a change that comes meanwhile is seen by the next look.
  const auto sighting = can_keep && kept_pages_.IsAskedAgain(tables, asked) ? watch_.Look() : std::nullopt;
  if (!sighting) return Render(request, plan, tables, outcome);
  if (const auto kept = kept_pages_.Find(tables, *sighting, asked)) return *kept;
  Answer answer = Render(request, plan, tables, outcome);
  if (answer.status == 200 && answer.type.starts_with("text/html") && outcome.message.empty())
    kept_pages_.Keep(tables, *sighting, asked, answer);
  return answer;
}

Answer Site::Render(const Request& request, const TablePlan& plan, const TableList& tables,
                    Outcome& outcome) {
  const auto page = PageFor(request);
  const auto start = StartOf(tables, plan.table.name);
  dralo::Response& out = page->GetResponse();
  out.Write(*start);
  out.Write(kViewStart);
  try {
    outcome = WriteTable(environment_, schema_.Connection(), plan, options_.can_edit, *page);
  } catch (const dralo::Page::Ended&) {
    return {page->Status(), page->ContentType(), page->Headers(), page->TakeBody()};
  }
  // A download that failed has dropped what was written before.
  if (!page->Body().starts_with(*start)) return Framed(*page, plan, page->Body(), outcome);
  out.Write(kViewEnd);
  out.Write(kPageEnd);
  std::string body = page->TakeBody();
  body.insert(start->size(), AboutTable(plan, options_.can_edit, outcome));
  return {page->Status(), page->ContentType(), page->Headers(), std::move(body)};
}

Answer Site::Download(const Request& request, const std::shared_ptr<const TablePlan>& plan,
                      Outcome& outcome) {
  // The thread that writes is still running when this function has returned.
  const auto written = std::make_shared<Outcome>();
  auto stream =
      std::make_shared<dralo::PageStream>(PageFor(request), [this, plan, written](dralo::Page& page) {
        *written = WriteTable(environment_, schema_.Connection(), *plan, options_.can_edit, page);
        // The part that could be written must not look like the whole.
        if (!written->message.empty() && !IsHtml(page)) throw dralo::Error("A download was given up");
      });
  std::string body(stream->Next());
  const dralo::Page& page = stream->Written();
  if (!IsHtml(page)) return {page.Status(), page.ContentType(), page.Headers(), std::move(body), stream};
  for (std::string_view piece = stream->Next(); !piece.empty(); piece = stream->Next()) body += piece;
  outcome = *written;
  return Framed(page, *plan, body, outcome);
}

Answer Site::Framed(const dralo::Page& page, const TablePlan& plan, std::string_view body,
                    const Outcome& outcome) {
  const std::string about = AboutTable(plan, options_.can_edit, outcome);
  return {page.Status(), page.ContentType(), page.Headers(),
          WholePage(FrameWith(schema_.Tables()), Label(plan.table.name), {about, kViewStart, body, kViewEnd},
                    plan.table.name)};
}

std::shared_ptr<const std::string> Site::StartOf(const TableList& tables, const TableName& table) {
  return starts_.Find(tables, table, [&] { return PageStart(FrameWith(tables), Label(table), table); });
}

Answer Site::Failure(int status, std::string_view title, std::string_view sentence) {
  auto tables = std::make_shared<const std::vector<Table>>();
  try {
    tables = schema_.Tables();
  } catch (const dralo::Error&) {
    // Without the list of tables the page still says what has failed.
  }
  return {.status = status, .body = Message(FrameWith(std::move(tables)), title, sentence)};
}

Frame Site::FrameWith(TableList tables) const {
  return {ShownName(options_), std::move(tables), options_.can_edit};
}

}  // namespace serve
