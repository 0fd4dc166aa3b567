#include "hosts/php/collected_response.h"

#include "dralo/error.h"
#include "hosts/php/guard.h"
#include "text/ascii.h"

namespace dralo::php {

void CollectedResponse::Write(std::string_view html) {
  StopIfTimedOut();
  if (!pass_on) {
    body_ += html;
    return;
  }
  is_sent_ = true;
  // A copy: the script may take its function away in the middle of the call.
  const auto pass = pass_on;
  pass(html);
}

void CollectedResponse::Clear() {
  RequireUnsent();
  body_.clear();
}

void CollectedResponse::AddHeader(std::string_view name, std::string_view value) {
  RequireUnsent();
  if (value.find_first_of(std::string_view("\r\n\0", 3)) != value.npos) {
    throw platform::Error("A header must be one line");
  }
  for (auto& [known, former] : headers_) {
    if (text::EqualAscii(known, name)) {
      former = value;
      return;
    }
  }
  headers_.emplace_back(name, value);
}

void CollectedResponse::SetStatus(int status) {
  RequireUnsent();
  status_ = status;
}

void CollectedResponse::End() {
  has_ended_ = true;
  throw HostAbort{HostAbort::Reason::kPageEnded};
}

void CollectedResponse::RequireUnsent() const {
  if (is_sent_)
    throw platform::Error("Part of the page was passed on already; set headers before any output");
}

}  // namespace dralo::php
