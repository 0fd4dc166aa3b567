// A CGI program: the web server starts it for each request, and names a visitor who has logged in.
// SHOP in the environment is the database, ASSETS the address of the folder "assets".
#include <dralo/dralo.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>

namespace {

std::string Variable(const std::string& name) {
  const char* const value = std::getenv(name.c_str());
  return value == nullptr ? "" : value;
}

/// The body of a post, within the size that a form may have.
std::string ReadForm() {
  constexpr std::size_t kLargestForm = 8'000'000;
  const std::string length = Variable("CONTENT_LENGTH");
  if (length.empty() || length.size() > 7 || Variable("CONTENT_TYPE").starts_with("multipart/")) return {};
  std::string form(std::min<std::size_t>(std::strtoul(length.c_str(), nullptr, 10), kLargestForm), '\0');
  std::cin.read(form.data(), static_cast<std::streamsize>(form.size()));
  form.resize(static_cast<std::size_t>(std::cin.gcount()));
  return form;
}

/// Headers as the server passes them on, and the content type of the form.
void ReadHeaders(dralo::Page& page) {
  page.method = Variable("REQUEST_METHOD");
  for (const std::string name : {"HOST", "ORIGIN", "REFERER", "SEC_FETCH_SITE"}) {
    const std::string value = Variable("HTTP_" + name);
    std::string header = name;
    for (char& c : header) c = c == '_' ? '-' : c;
    if (!value.empty()) page.request_headers.emplace_back(header, value);
  }
  page.request_headers.emplace_back("Content-Type", Variable("CONTENT_TYPE"));
}

void WriteHeaders(const dralo::Page& page) {
  std::cout << "Status: " << page.Status() << "\r\nContent-Type: " << page.ContentType() << "\r\n";
  for (const auto& [name, value] : page.Headers()) std::cout << name << ": " << value << "\r\n";
  std::cout << "Content-Security-Policy: default-src 'self'; form-action 'self'; base-uri 'none'; "
               "frame-ancestors 'self'\r\nX-Content-Type-Options: nosniff\r\n\r\n";
}

void WriteCustomers(dralo::Environment& environment, dralo::Page& page) {
  dralo::DbView view(environment);
  view.OnStartPage(page);
  view.SetConnectionString("Provider=SQLite;Data Source=" + Variable("SHOP"));
  view.SetSql("SELECT ID, Company, City, Country, Since, Newsletter FROM Customers");
  view.SetImageDir(Variable("ASSETS") + "/gfx/");
  // A visitor whom the server has let in by name may change the customers.
  view.SetEditOptions(Variable("REMOTE_USER").empty() ? "" : "ALL");
  view.SetEditPrimaryKeys("ID");
  view.SetEditNewPKStatement("autoincrement");
  view.SetDeleteSQL("DELETE FROM Customers");
  view.WriteHtmlTable();
  page.GetResponse().Write(view.ErrorMessage());
  view.OnEndPage();
}

}  // namespace

int main() {
  dralo::Page page(Variable("SCRIPT_NAME"), Variable("QUERY_STRING"), ReadForm());
  ReadHeaders(page);
  bool has_begun = false;
  // Pieces are sent as they are written, so that a download takes no memory.
  page.send = [&](const dralo::Page& written, std::string_view piece) {
    if (!has_begun) WriteHeaders(written);
    if (!has_begun && written.ContentType().starts_with("text/html")) {
      std::cout << "<!doctype html><html lang=\"en\"><meta charset=\"utf-8\"><title>Customers</title>"
                << "<link rel=\"stylesheet\" href=\"" << Variable("ASSETS") << "/dralo.css\">\n";
    }
    has_begun = true;
    std::cout << piece;
  };
  try {
    dralo::Environment environment(
        "en-US", {.hardened = true, .log = [](std::string_view line) { std::cerr << line << '\n'; }});
    WriteCustomers(environment, page);
  } catch (const dralo::Page::Ended&) {
    if (!has_begun) WriteHeaders(page);
  } catch (const dralo::Error& error) {
    std::cerr << error.what() << '\n';
    if (!has_begun) std::cout << "Status: 503\r\nContent-Type: text/plain\r\n\r\nThe shop is closed.\n";
  }
}
