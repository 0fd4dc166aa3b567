// A web server of its own: everybody sees the customers, who has logged in edits them, downloads are
// streamed.
//     http_server SHOP.DB ASSETS PORT PASSWORD      then open http://127.0.0.1:PORT/
#include <dralo/dralo.h>
#include <httplib.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

namespace {

constexpr const char* kHead = R"(<!doctype html><html lang="en"><meta charset="utf-8">
<meta name="viewport" content="width=device-width"><title>Customers</title><link rel="stylesheet" href="/assets/dralo.css">
<script src="/assets/dralo.js" defer></script><h1>Customers</h1><p><a href="/">Look</a> <a href="/edit">Edit</a>
)";

constexpr auto kPolicy = "default-src 'self'; form-action 'self'; base-uri 'none'; frame-ancestors 'self'";

void WriteCustomers(dralo::Environment& environment, const std::string& file, bool edits, dralo::Page& page) {
  dralo::DbView view(environment);
  view.OnStartPage(page);
  try {
    view.SetConnectionString("Provider=SQLite;Data Source=" + file + (edits ? "" : ";Mode=Read"));
  } catch (const dralo::Error& error) {
    std::cerr << error.what() << '\n';
    page.GetResponse().SetStatus(503);
    return page.GetResponse().Write("The shop is closed. Please come back later.");
  }
  view.SetSql("SELECT ID, Company, City, Country, Since, Newsletter FROM Customers");
  view.SetImageDir("/assets/gfx/");
  view.SetEditOptions(edits ? "ALL" : "");
  view.SetEditPrimaryKeys("ID");
  view.SetEditNewPKStatement("autoincrement");
  view.SetDeleteSQL("DELETE FROM Customers");
  view.SetEditConfirmDeleteString("Delete this customer?");
  view.WriteHtmlTable();
  page.GetResponse().Write(view.ErrorMessage());
  view.OnEndPage();
}

/// The request for the page. The target is a path, perhaps followed by "?" and a query.
std::unique_ptr<dralo::Page> PageOf(const httplib::Request& request, const std::string& form) {
  const std::size_t begin = std::min(request.target.find('?'), request.target.size() - 1) + 1;
  auto page = std::make_unique<dralo::Page>(request.path, request.target.substr(begin), form);
  page->method = request.method;
  page->request_headers.assign(request.headers.begin(), request.headers.end());
  return page;
}

/// Status and headers are known with the first piece; the other pieces follow as the browser takes them.
void Send(const std::shared_ptr<dralo::PageStream>& stream, httplib::Response& response) {
  const std::string_view first = stream->Next();
  const dralo::Page& page = stream->Written();
  response.status = page.Status();
  for (const auto& [name, value] : page.Headers()) response.set_header(name, value);
  if (first.empty()) return;
  const std::string begin = (page.ContentType().starts_with("text/html") ? kHead : "") + std::string(first);
  const auto provide = [stream, begin](std::size_t at, httplib::DataSink& sink) {
    const std::string_view piece = at == 0 ? std::string_view(begin) : stream->Next();
    if (piece.empty()) sink.done();
    return piece.empty() || sink.write(piece.data(), piece.size());
  };
  response.set_chunked_content_provider(page.ContentType(), provide);
}

}  // namespace

int main(int count, char** words) {
  if (count != 5) return std::cerr << "usage: http_server SHOP.DB ASSETS PORT PASSWORD\n", 2;
  const auto log = [](std::string_view line) { std::cerr << std::string(line) + "\n"; };
  dralo::Environment environment("en-US",
                                 {.hardened = true, .hosts = {"127.0.0.1", "localhost"}, .log = log});
  // A real server keeps password hashes of many users, and serves by TLS.
  const auto login = httplib::make_basic_authentication_header("editor", words[4]).second;
  const std::string file = words[1];
  const auto answer = [&](const auto& request, auto& response, const std::string& form) {
    const bool edits = request.path == "/edit";
    if (edits && request.get_header_value("Authorization") != login) {
      response.set_header("WWW-Authenticate", "Basic realm=\"Customers\"");
      return void(response.status = 401);
    }
    const auto write = [&, edits](dralo::Page& page) { WriteCustomers(environment, file, edits, page); };
    Send(std::make_shared<dralo::PageStream>(PageOf(request, form), write), response);
  };
  httplib::Server server;
  server.set_default_headers({{"Content-Security-Policy", kPolicy}, {"X-Content-Type-Options", "nosniff"}});
  server.set_mount_point("/assets", words[2]);
  server.Get("/(edit)?", [&](const auto& request, auto& response) { answer(request, response, ""); });
  server.Post("/edit", [&](const auto& request, auto& response, const httplib::ContentReader& read) {
    std::string form;
    if (request.is_multipart_form_data()) return void(response.status = 415);
    read([&](const char* data, std::size_t size) { return form.append(data, size).size() <= 8'000'000; });
    answer(request, response, form);
  });
  return server.listen("127.0.0.1", std::stoi(words[3])) ? 0 : 1;
}
