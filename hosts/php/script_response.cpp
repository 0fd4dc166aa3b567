#include "hosts/php/script_response.h"

#include <cstdint>
#include <string>

#include "dralo/error.h"
#include "hosts/php/engine.h"
#include "hosts/php/guard.h"

namespace dralo::php {
namespace {

void RequireUnsentHeaders() {
  if (SG(headers_sent)) {
    throw platform::Error("The page has already begun to be sent; enable output_buffering or render earlier");
  }
}

void SetHeader(const std::string& line) {
  RequireUnsentHeaders();
  if (line.find_first_of(std::string_view("\r\n\0", 3)) != line.npos) {
    throw platform::Error("A header must be one line");
  }
  CallPhp([&] {
    sapi_header_line header = {};
    header.line = line.c_str();
    header.line_len = line.size();
    sapi_header_op(SAPI_HEADER_REPLACE, &header);
  });
}

}  // namespace

void ScriptResponse::Write(std::string_view html) {
  StopIfTimedOut();
  CallPhp([&] { php_output_write(html.data(), html.size()); });
}

void ScriptResponse::Clear() {
  RequireUnsentHeaders();
  CallPhp([] { php_output_discard_all(); });
}

void ScriptResponse::SetContentType(std::string_view type) {
  SetHeader("Content-Type: " + std::string(type));
}

void ScriptResponse::AddHeader(std::string_view name, std::string_view value) {
  SetHeader(std::string(name).append(": ").append(value));
}

bool ScriptResponse::HasUnsentHeaders() const { return !SG(headers_sent); }

void ScriptResponse::SetStatus(int status) {
  RequireUnsentHeaders();
  CallPhp([&] { sapi_header_op(SAPI_HEADER_SET_STATUS, reinterpret_cast<void*>(std::intptr_t{status})); });
}

void ScriptResponse::End() {
  CallPhp([] {
    php_output_end_all();
    php_output_set_status(PHP_OUTPUT_DISABLED);
  });
  throw HostAbort{HostAbort::Reason::kEnded};
}

}  // namespace dralo::php
