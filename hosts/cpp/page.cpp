#include "dralo/page.h"

#include <algorithm>

#include "dralo/error.h"
#include "hosts/cpp/url_encoded.h"
#include "text/ascii.h"

namespace dralo {
namespace {

/// Room for most pages. What is not written to costs no memory.
constexpr std::size_t kUsualBytes = std::size_t{60} * 1024;

}  // namespace

Page::Page(std::string_view script_name, std::string_view query_string, std::string_view form_body)
    : script_name_(script_name),
      query_(host::ParseUrlEncoded(query_string)),
      form_(host::ParseUrlEncoded(form_body)) {}

std::string Page::ServerVariable(std::string_view name) const {
  return name == "SCRIPT_NAME" ? script_name_ : std::string();
}

std::vector<std::string> Page::HeaderValues(std::string_view name) const {
  std::vector<std::string> values;
  for (const auto& [known, value] : request_headers) {
    if (text::EqualAscii(known, name)) values.push_back(value);
  }
  return values;
}

void Page::Write(std::string_view html) {
  if (!send) {
    // The first piece of a large page is followed by others: with room for them it need not be copied again.
    if (body_.empty()) body_.reserve(std::max(html.size() * 4, kUsualBytes));
    body_ += html;
    return;
  }
  sent_ = true;
  send(*this, html);
}

void Page::Clear() {
  RequireUnsentHeaders();
  body_.clear();
}

void Page::SetContentType(std::string_view type) {
  RequireUnsentHeaders();
  content_type_ = type;
}

void Page::AddHeader(std::string_view name, std::string_view value) {
  RequireUnsentHeaders();
  headers_.emplace_back(name, value);
}

void Page::SetStatus(int status) {
  RequireUnsentHeaders();
  status_ = status;
}

void Page::End() { throw Ended{}; }

void Page::RequireUnsentHeaders() const {
  if (sent_) throw Error("Part of the page was sent already; set headers before any output");
}

}  // namespace dralo
