#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "dralo/request.h"

namespace dralo::php {

/// The request that the script answers, read from its raw bytes: PHP's own arrays mangle names ("a.x" becomes
/// "a_x"), drop repeated ones and stop at max_input_vars. Each part is read once, when it is first asked for.
/// On the command line there is no request, and all parts are empty.
class ScriptRequest final : public platform::Request {
 public:
  /// Fields posted as application/x-www-form-urlencoded or multipart/form-data, without files.
  std::span<const platform::RequestField> Form() const override;

  std::span<const platform::RequestField> QueryString() const override;

  /// An entry of $_SERVER, as the script has left it when it is first asked for.
  std::string_view ServerVariable(std::string_view name) const override;

 private:
  mutable std::optional<std::vector<platform::RequestField>> form_;
  mutable std::optional<std::vector<platform::RequestField>> query_;
  mutable std::map<std::string, std::string, std::less<>> server_;
};

}  // namespace dralo::php
