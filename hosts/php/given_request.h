#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dralo/request.h"
#include "hosts/php/engine.h"

namespace dralo::php {

/// A request whose parts the script hands over.
class GivenRequest final : public platform::Request {
 public:
  /// `query` and `body` as they came; a body of another type than forms have has no fields. An empty body of
  /// type multipart/form-data stands for the form that PHP has read, because PHP keeps nothing of such a
  /// body. `server` is as $_SERVER: its texts are copied.
  GivenRequest(std::string_view script_name, std::string_view query, std::string_view body,
               std::string_view content_type, HashTable* server);

  std::span<const platform::RequestField> Form() const override { return form_; }
  std::span<const platform::RequestField> QueryString() const override { return query_; }

  /// SCRIPT_NAME is the address that was handed over, whatever `server` says.
  std::string ServerVariable(std::string_view name) const override;

  std::string Method() const override { return ServerVariable("REQUEST_METHOD"); }

  /// Of Content-Type what was handed over with the body; the others are those of `server`.
  std::vector<std::string> HeaderValues(std::string_view name) const override;

 private:
  const std::string* Find(std::string_view name) const;

  std::string script_name_;
  std::string content_type_;
  std::vector<platform::RequestField> form_;
  std::vector<platform::RequestField> query_;
  std::vector<std::pair<std::string, std::string>> server_;
};

}  // namespace dralo::php
