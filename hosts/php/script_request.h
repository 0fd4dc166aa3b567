#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dralo/request.h"

namespace dralo::php {

/// The request that the script answers, read from its raw bytes: PHP's own arrays mangle names ("a.x" becomes
/// "a_x"), drop repeated ones and stop at max_input_vars. On the command line there is no request, and all
/// parts are empty.
class ScriptRequest final : public platform::Request {
 public:
  /// Reads form and query string; `script_name` stands in for SCRIPT_NAME. Runs as C++, as all members do.
  explicit ScriptRequest(std::optional<std::string> script_name = std::nullopt);

  /// Fields posted as application/x-www-form-urlencoded or multipart/form-data, without files.
  std::span<const platform::RequestField> Form() const override { return form_; }

  std::span<const platform::RequestField> QueryString() const override { return query_; }

  /// An entry of $_SERVER, as the script has left it by now.
  std::string ServerVariable(std::string_view name) const override;

  /// As the server handed it over: the script cannot change it.
  std::string Method() const override;

  /// Those of $_SERVER, except for the type of the body, which the script cannot change.
  std::vector<std::string> HeaderValues(std::string_view name) const override;

 private:
  std::optional<std::string> script_name_;
  std::vector<platform::RequestField> form_;
  std::vector<platform::RequestField> query_;
};

}  // namespace dralo::php
