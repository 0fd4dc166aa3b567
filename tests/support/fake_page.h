#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dralo/page_context.h"

namespace dralo::tests {

/// A page whose request is made up by the test and whose response is kept for it.
class FakePage : public platform::PageContext, private platform::Request, private platform::Response {
 public:
  using Fields = std::vector<platform::RequestField>;

  Fields query;
  Fields form;
  std::string method;  ///< Until it is set: "POST" with a form, else "GET".

  /// Those of a post from the page's own form, until the test sets others.
  std::vector<std::pair<std::string, std::string>> headers = {
      {"Sec-Fetch-Site", "same-origin"}, {"Content-Type", "application/x-www-form-urlencoded"}};
  std::string script_name = "/p";

  std::string body;  ///< What was written since the last Clear().
  std::vector<std::string>
      calls;  ///< "write", "clear", "content-type: X", "NAME: VALUE", "end" in their order.
  std::function<void()> on_write;  ///< Called before each write; may throw.
  std::function<void()> on_clear;  ///< Called before each Clear(); may throw.
  std::function<void()> on_end;    ///< Called at the end of the page; may throw.
  bool has_unsent_headers = true;  ///< Whether a status can be set.
  int status = 200;

  const platform::Request& GetRequest() const override { return *this; }
  platform::Response& GetResponse() override { return *this; }

 private:
  std::span<const platform::RequestField> Form() const override { return form; }
  std::span<const platform::RequestField> QueryString() const override { return query; }
  std::string ServerVariable(std::string_view name) const override {
    return name == "SCRIPT_NAME" ? script_name : std::string();
  }
  std::string Method() const override { return !method.empty() ? method : form.empty() ? "GET" : "POST"; }
  std::vector<std::string> HeaderValues(std::string_view name) const override {
    std::vector<std::string> values;
    for (const auto& [known, value] : headers) {
      if (known == name) values.push_back(value);
    }
    return values;
  }

  void Write(std::string_view html) override {
    if (on_write) on_write();
    calls.emplace_back("write");
    body += html;
  }
  void Clear() override {
    if (on_clear) on_clear();
    calls.emplace_back("clear");
    body.clear();
  }
  void SetContentType(std::string_view type) override {
    calls.push_back("content-type: " + std::string(type));
  }
  void AddHeader(std::string_view name, std::string_view value) override {
    calls.push_back(std::string(name) + ": " + std::string(value));
  }
  void End() override {
    calls.emplace_back("end");
    if (on_end) on_end();
  }
  bool HasUnsentHeaders() const override { return has_unsent_headers; }
  void SetStatus(int code) override { status = code; }
};

}  // namespace dralo::tests
