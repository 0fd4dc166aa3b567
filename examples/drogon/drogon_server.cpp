// A web server on Drogon: everybody sees the customers, who has logged in edits them, downloads are streamed.
//     drogon_server SHOP.DB ASSETS PORT PASSWORD      then open http://127.0.0.1:PORT/
#include <dralo/dralo.h>
#include <drogon/drogon.h>
#include <trantor/utils/ConcurrentTaskQueue.h>

#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

namespace {

using Send = std::function<void(const drogon::HttpResponsePtr&)>;

constexpr const char* kHead = R"(<!doctype html><html lang="en"><meta charset="utf-8">
<meta name="viewport" content="width=device-width"><title>Customers</title><link rel="stylesheet" href="/assets/dralo.css">
<script src="/assets/dralo.js" defer></script><h1>Customers</h1><p><a href="/">Look</a> <a href="/edit">Edit</a>)";
constexpr auto kPolicy = "default-src 'self'; form-action 'self'; base-uri 'none'; frame-ancestors 'self'";

void Log(std::string_view line) { std::cerr << std::string(line) + "\n"; }

void WriteShop(dralo::Environment& environment, const std::string& file, bool edits, dralo::Page& page) try {
  dralo::DbView view(environment);
  view.OnStartPage(page);
  view.SetConnectionString("Provider=SQLite;Data Source=" + file + (edits ? "" : ";Mode=Read"));
  view.SetSql("SELECT ID, Company, City, Country, Since, Newsletter FROM Customers");
  view.SetImageDir("/assets/gfx/");
  view.SetEditOptions(edits ? "ALL" : "");
  view.SetEditPrimaryKeys("ID");
  view.SetEditNewPKStatement("autoincrement");
  view.SetDeleteSQL("DELETE FROM Customers");
  view.WriteHtmlTable();
  page.GetResponse().Write(view.ErrorMessage());
  view.OnEndPage();
} catch (const std::exception& error) {
  Log(error.what());
  if (!page.GetResponse().HasUnsentHeaders()) return;
  page.GetResponse().SetStatus(503);
  page.GetResponse().Write("The shop is closed. Please come back later.");
}

drogon::HttpResponsePtr AskForLogin() {
  const auto response = drogon::HttpResponse::newHttpResponse();
  response->setStatusCode(drogon::k401Unauthorized);
  response->addHeader("WWW-Authenticate", "Basic realm=\"Customers\"");
  return response;
}

/// Behind the first piece, with which status and headers stand, Drogon asks for as much as the browser takes.
drogon::HttpResponsePtr ResponseOf(std::shared_ptr<dralo::PageStream> stream) {
  std::string rest(stream->Next());
  const dralo::Page& page = stream->Written();
  const std::string& type = page.ContentType();
  if (!rest.empty() && type.starts_with("text/html")) rest.insert(0, kHead);
  const auto provide = [stream, rest, at = std::size_t{0}](char* to, std::size_t size) mutable {
    if (to == nullptr) return stream.reset(), std::size_t{0};
    if (at == rest.size()) rest = stream->Next(), at = 0;
    const std::size_t count = rest.copy(to, size, at);
    at += count;
    return count;
  };
  const auto response = drogon::HttpResponse::newStreamResponse(provide, "", drogon::CT_CUSTOM, type);
  response->setStatusCode(static_cast<drogon::HttpStatusCode>(page.Status()));
  for (const auto& [name, value] : page.Headers()) response->addHeader(name, value);
  return response;
}

}  // namespace

int main(int count, char** words) {
  if (count != 5) return std::cerr << "usage: drogon_server SHOP.DB ASSETS PORT PASSWORD\n", 2;
  // Made before Drogon's application, it is there until the last stream has gone with that.
  static dralo::Environment environment("en-US", {.hardened = true, .hosts = {"127.0.0.1"}, .log = Log});
  // Databases make threads wait; those that serve connections shall not.
  trantor::ConcurrentTaskQueue workers(8, "pages");
  // Whoever takes this further keeps hashes of the passwords of many, and serves by TLS.
  const std::string login = "Basic " + drogon::utils::base64Encode("editor:" + std::string(words[4]));
  const auto answer = [&, file = std::string(words[1])](const drogon::HttpRequestPtr& request, Send&& send) {
    const bool edits = request->path() == "/edit";
    if (edits && request->getHeader("Authorization") != login) return send(AskForLogin());
    workers.runTaskInQueue([=, send = std::move(send)] {
      auto page = std::make_unique<dralo::Page>(request->path(), request->query(), request->body());
      page->method = request->methodString();
      page->request_headers.assign(request->headers().begin(), request->headers().end());
      const auto write = [file, edits](dralo::Page& to) { WriteShop(environment, file, edits, to); };
      send(ResponseOf(std::make_shared<dralo::PageStream>(std::move(page), write)));
    });
  };
  auto& server = drogon::app().addListener("127.0.0.1", std::stoi(words[3]));
  server.setThreadNum(2).setClientMaxBodySize(8'000'000).addALocation("/assets", "", words[2]);
  for (auto path : {"/", "/edit"}) server.registerHandler(path, answer, {drogon::Get, drogon::Post});
  server.registerPreSendingAdvice([](const auto&, const drogon::HttpResponsePtr& response) {
    response->addHeader("Content-Security-Policy", kPolicy);
    response->addHeader("X-Content-Type-Options", "nosniff");
  });
  server.run();
}
